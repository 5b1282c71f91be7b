#include "startstopwatch.h"

#include "pagelist.h"

#include <vxsettings/dbparamwidget.h>

#include <QApplication>
#include <QEvent>
#include <QWindow>

StartStopwatch::StartStopwatch(Clock::time_point start)
    : m_start(start)
{
    qApp->installEventFilter(this);
}

const std::array<double, StartStopwatch::milestones> &StartStopwatch::reached() const
{
    return m_reached;
}

bool StartStopwatch::eventFilter(QObject *watched, QEvent *event)
{
    const auto *window = qobject_cast<QWindow *>(watched);
    if (event->type() == QEvent::Expose && window && window->isExposed())
        reach(Exposed);
    const auto *list = qobject_cast<PageList *>(watched);
    if (event->type() == QEvent::EnabledChange && list && list->isEnabled())
        reach(Usable);
    if (event->type() == QEvent::Paint && qobject_cast<DBParamWidget *>(watched)) {
        reach(Painted);
        QCoreApplication::exit();
    }
    return false;
}

void StartStopwatch::reach(Milestone milestone)
{
    if (m_reached[milestone] == 0)
        m_reached[milestone] = std::chrono::duration<double, std::milli>(Clock::now() - m_start).count();
}
