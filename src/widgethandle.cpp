#include "widgethandle.h"

#include <qtcompat.h>

#include <QPointer>

namespace widgethandle {
namespace {

/// A widget in its destructor has left the focus chain before it says destroyed(), also to those who were connected
/// to it before anybody else.
bool isDying(const QWidget *widget)
{
    return !widget->nextInFocusChain();
}

/// Takes out of @p frame what is in the middle of its destruction and would be deleted a second time.
/// QWidget::setParent() needs a whole widget, so this is QObject's.
void releaseDying(const QWidget *frame)
{
    for (QWidget *widget : qtcompat::findChildren<QWidget>(frame)) {
        if (!isDying(widget))
            continue;
        // The widgets above the frame would remember a focus in there for good.
        if (QWidget *focused = widget->focusWidget())
            focused->clearFocus();
        widget->QObject::setParent(nullptr);
    }
}

/// Deletes a widget that nobody else has deleted, or is just deleting.
class Deleter
{
public:
    explicit Deleter(QWidget *widget)
        : m_widget(widget)
        , m_alive(std::make_shared<bool>(true))
    {
        // Tells of a lone widget, which is its own focus chain to the end.
        QObject::connect(widget, &QObject::destroyed, [alive = m_alive] { *alive = false; });
    }

    bool isAlive() const { return *m_alive && m_widget && !isDying(m_widget); }

    void operator()(QWidget *widget) const
    {
        if (!isAlive())
            return;
        releaseDying(widget);
        delete widget;
    }

private:
    QPointer<QWidget> m_widget;
    std::shared_ptr<bool> m_alive;
};
} // namespace

std::shared_ptr<QWidget> make(QWidget *widget)
{
    if (!widget)
        return {};
    std::unique_ptr<QWidget> guard(widget);
    Deleter deleter(widget);
    return {guard.release(), std::move(deleter)};
}

std::shared_ptr<QWidget> alive(const std::shared_ptr<QWidget> &handle)
{
    const auto *deleter = std::get_deleter<Deleter>(handle);
    return deleter && deleter->isAlive() ? handle : nullptr;
}

void reset(std::shared_ptr<QWidget> &handle, QWidget *widget)
{
    if (widget && alive(handle).get() == widget)
        return;
    handle = make(widget);
}
} // namespace widgethandle
