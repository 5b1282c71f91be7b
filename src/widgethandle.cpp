#include "widgethandle.h"

#include <QPointer>

namespace widgethandle {
namespace {

/// Deletes a widget that nobody else has deleted, or is just deleting.
class Deleter
{
public:
    explicit Deleter(QWidget *widget)
        : m_widget(widget)
        , m_alive(std::make_shared<bool>(true))
    {
        // The first connection of all is served first: a host that drops its tree in a later one finds the flag
        // cleared.
        QObject::connect(widget, &QObject::destroyed, [alive = m_alive] { *alive = false; });
    }

    bool isAlive() const { return *m_alive; }

    void operator()(QWidget *widget) const
    {
        if (*m_alive)
            delete widget;
        else if (m_widget)
            leaveFrame();
    }

private:
    /// The widget is in the middle of its destruction. Its frame goes next and must not find it among its children.
    /// QWidget::setParent() needs a whole widget, so this is QObject's.
    void leaveFrame() const { m_widget->QObject::setParent(nullptr); }

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
