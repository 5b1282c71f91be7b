#include "widgethandle.h"

#include <qtcompat.h>

#include <QPointer>
#include <QVector>

namespace widgethandle {
namespace {

/// A widget in its destructor has left the focus chain before it says destroyed(), also to those who were connected
/// to it before anybody else.
bool isDying(const QWidget *widget)
{
    return !widget->nextInFocusChain();
}

/// Guarded, because whatever hears of one's death may delete others.
using Widgets = QVector<QPointer<QWidget>>;

Widgets wholeChildren(const QWidget *widget)
{
    Widgets whole;
    for (QObject *child : widget->children()) {
        if (auto *candidate = qobject_cast<QWidget *>(child); candidate && !isDying(candidate))
            whole.append(candidate);
    }
    return whole;
}

/// The innermost first.
Widgets dyingBelow(const QWidget *frame)
{
    Widgets dying;
    for (QWidget *widget : qtcompat::findChildren<QWidget>(frame)) {
        if (isDying(widget))
            dying.prepend(widget);
    }
    return dying;
}

/// Lets go of what is in the middle of its destruction, inside of a frame that is deleted before it is through.
void release(QWidget *dying)
{
    // The widgets above the frame would remember a focus in there for good.
    if (QWidget *focused = dying->focusWidget())
        focused->clearFocus();
    // Its window would keep them among what waits for a repaint, if they died below no window.
    for (const QPointer<QWidget> &child : wholeChildren(dying))
        delete child;
    // QWidget::setParent() needs a whole widget, so this is QObject's.
    dying->QObject::setParent(nullptr);
}

/// Takes out of @p frame what would be deleted a second time.
void releaseDying(const QWidget *frame)
{
    for (const QPointer<QWidget> &dying : dyingBelow(frame)) {
        if (dying)
            release(dying);
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
