#include "callcontrol.h"

#include <sys/socket.h>

void CallControl::cancel()
{
    const std::lock_guard lock(m_mutex);
    m_cancelled = true;
    m_changed.notify_all();
}

void CallControl::abandon()
{
    const std::lock_guard lock(m_mutex);
    m_cancelled = true;
    m_abandoned = true;
    m_changed.notify_all();
    // The driver waits for an answer without end. It takes this for the end of the connection.
    if (m_socket >= 0)
        ::shutdown(m_socket, SHUT_RDWR);
}

void CallControl::start()
{
    const std::lock_guard lock(m_mutex);
    m_cancelled = m_abandoned;
}

bool CallControl::isCancelled() const
{
    const std::lock_guard lock(m_mutex);
    return m_cancelled;
}

bool CallControl::isAbandoned() const
{
    const std::lock_guard lock(m_mutex);
    return m_abandoned;
}

bool CallControl::pause(std::chrono::milliseconds duration)
{
    std::unique_lock lock(m_mutex);
    return !m_changed.wait_for(lock, duration, [this] { return m_cancelled; });
}

void CallControl::setSocket(int socket)
{
    const std::lock_guard lock(m_mutex);
    m_socket = socket;
}
