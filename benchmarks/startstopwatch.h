#pragma once

#include <QObject>

#include <array>
#include <chrono>

/// Measures in the manager's own event loop how long its window takes, and ends it.
class StartStopwatch : public QObject
{
public:
    using Clock = std::chrono::steady_clock; ///< one for all processes

    enum Milestone {
        Exposed, ///< the window is on the screen
        Usable,  ///< its pages can be chosen
        Painted, ///< the first page with its values
    };
    static constexpr int milestones = 3;

    /// Needs the application, in which nothing has happened yet. @p start is that of the process.
    explicit StartStopwatch(Clock::time_point start);

    /// Since the start, in milliseconds; 0 for what has not been reached.
    const std::array<double, milestones> &reached() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void reach(Milestone milestone);

    Clock::time_point m_start;
    std::array<double, milestones> m_reached{};
};
