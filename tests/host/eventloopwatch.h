#pragma once

#include <QElapsedTimer>
#include <QFile>
#include <QTimer>

/// Measures for how long the event loop of this thread was held up, while it runs.
///
/// What other programs take of the processor while this thread could run is no fault of it; the kernel counts that,
/// and it is taken off.
class EventLoopWatch
{
public:
    EventLoopWatch()
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this] { tick(); });
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.start(5);
        start();
    }

    /// From now on; what was before does not count.
    void start()
    {
        m_longest = 0;
        m_longestWithOthers = 0;
        m_clock.start();
        m_waited = waitedForProcessor();
    }
    /// In milliseconds, the last moment included.
    int longest()
    {
        tick();
        return int(m_longest / 1000000);
    }
    /// The same with what other programs have taken.
    int longestWithOthers() const { return int(m_longestWithOthers / 1000000); }

private:
    void tick()
    {
        const qint64 waited = waitedForProcessor();
        const qint64 gap = m_clock.nsecsElapsed();
        m_longest = qMax(m_longest, gap - (waited - m_waited));
        m_longestWithOthers = qMax(m_longestWithOthers, gap);
        m_waited = waited;
        m_clock.start();
    }
    /// In nanoseconds, of this thread.
    static qint64 waitedForProcessor()
    {
        QFile file(QStringLiteral("/proc/thread-self/schedstat"));
        return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toLongLong() : 0;
    }

    QTimer m_timer;
    QElapsedTimer m_clock;
    qint64 m_waited = 0;
    qint64 m_longest = 0;
    qint64 m_longestWithOthers = 0;
};
