#pragma once

#include <deque>
#include <mutex>
#include <optional>
#include <utility>

/// Hands values from one thread to another, first in, first out. Thread-safe.
///
/// A signal without arguments tells the other thread to look. The values do not travel with it, so that who destroys a
/// copy is never left to the event queue, and a race detector, which cannot look into Qt, sees that nobody shares them.
template <typename Value>
class Mailbox
{
public:
    void put(Value value)
    {
        const std::lock_guard lock(m_mutex);
        m_values.push_back(std::move(value));
    }

    /// Nothing if there is none.
    std::optional<Value> take()
    {
        const std::lock_guard lock(m_mutex);
        if (m_values.empty())
            return {};
        std::optional<Value> value(std::move(m_values.front()));
        m_values.pop_front();
        return value;
    }

private:
    std::mutex m_mutex;
    std::deque<Value> m_values;
};
