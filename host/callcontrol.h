#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

/// What the two threads of an installation database share about the calls that are under way. Thread-safe.
class CallControl
{
public:
    /// Ends every pause() of the call under way, and keeps a save from being committed. Forgotten by start().
    void cancel();
    /// The same for all times, and whatever waits for the server at the moment fails.
    void abandon();

    /// A new call begins.
    void start();
    bool isCancelled() const;
    bool isAbandoned() const;
    /// Waits; false as soon as the call is cancelled.
    bool pause(std::chrono::milliseconds duration);

    /// At what the connection waits for its server; -1 while there is none. Closing it must be told before.
    void setSocket(int socket);

private:
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_cancelled = false;
    bool m_abandoned = false;
    int m_socket = -1;
};
