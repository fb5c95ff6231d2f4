#include "Foundation/SerialQueue.h"

#include <condition_variable>
#include <mutex>
#include <utility>

namespace corvane {

struct WorkItem::State {
    std::mutex mutex;
    Function function;
};

WorkItem::WorkItem(Function function) : m_state(std::make_shared<State>())
{
    m_state->function = std::move(function);
}

void WorkItem::cancel()
{
    if (!m_state)
        return;
    // Declared before the lock, so destroyed after it: what the function holds may cancel other items.
    Function dropped;
    const std::lock_guard lock(m_state->mutex);
    std::swap(dropped, m_state->function);
}

void WorkItem::perform()
{
    if (!m_state)
        return;
    Function function;
    {
        const std::lock_guard lock(m_state->mutex);
        std::swap(function, m_state->function);
    }
    if (function)
        function();
}

void SerialQueue::sync(const Function& function)
{
    if (isCurrent()) {
        function();
        return;
    }
    std::mutex mutex;
    std::condition_variable done;
    bool finished = false;
    // Let go by the function that holds it, whether it was run or dropped. Notified under the lock: the
    // waiter owns the condition variable and may destroy it once it sees `finished`.
    auto end = std::shared_ptr<void>(nullptr, [&](void*) {
        const std::lock_guard lock(mutex);
        finished = true;
        done.notify_one();
    });
    async([&function, end = std::move(end)]() mutable {
        function();
        end.reset();
    });
    std::unique_lock lock(mutex);
    done.wait(lock, [&] { return finished; });
}

} // namespace corvane
