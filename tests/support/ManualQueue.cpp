#include "support/ManualQueue.h"

#include <utility>

namespace corvane {

void ManualQueue::async(Function function)
{
    const std::lock_guard lock(m_mutex);
    m_ready.push_back(std::move(function));
}

WorkItem ManualQueue::after(Duration delay, Function function)
{
    WorkItem item(std::move(function));
    const std::lock_guard lock(m_mutex);
    m_waiting.emplace(m_now + delay, item);
    return item;
}

Instant ManualQueue::now() const
{
    const std::lock_guard lock(m_mutex);
    return m_now;
}

void ManualQueue::runReady()
{
    while (runNext()) { }
}

void ManualQueue::advance(Duration duration)
{
    const auto end = now() + duration;
    runReady();
    while (true) {
        {
            const std::lock_guard lock(m_mutex);
            if (m_waiting.empty() || m_waiting.begin()->first > end) {
                m_now = end;
                return;
            }
            m_now = std::max(m_now, m_waiting.begin()->first);
        }
        runReady();
    }
}

std::size_t ManualQueue::waitingCount() const
{
    const std::lock_guard lock(m_mutex);
    return m_waiting.size();
}

bool ManualQueue::runNext()
{
    Function function;
    {
        const std::lock_guard lock(m_mutex);
        if (!m_ready.empty()) {
            function = std::move(m_ready.front());
            m_ready.pop_front();
        } else if (!m_waiting.empty() && m_waiting.begin()->first <= m_now) {
            function = [item = m_waiting.extract(m_waiting.begin()).mapped()]() mutable { item.perform(); };
        }
    }
    if (!function)
        return false;
    function();
    return true;
}

} // namespace corvane
