#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>

namespace corvane {

using Duration = std::chrono::nanoseconds;
/// Monotonic time; only differences mean anything.
using Instant = std::chrono::time_point<std::chrono::steady_clock, Duration>;

/// A function that a queue will run later, and the handle to cancel it.
///
/// Copies share the one function. Usable from any thread. Dropping the handle does not cancel.
class WorkItem {
public:
    using Function = std::function<void()>;

    WorkItem() = default;
    explicit WorkItem(Function function);

    /// Guarantees that the function will not start after this returns when called on the item's own queue;
    /// from elsewhere it may just be starting. Releases what the function holds. Safe to repeat.
    void cancel();

    /// Runs the function unless it was cancelled or has run before. The queue calls this.
    void perform();

private:
    struct State;
    std::shared_ptr<State> m_state;
};

/// Runs functions one at a time, in order.
///
/// There are three kinds: the main thread, a thread of its own (both `EventLoopQueue`), and in tests a queue
/// whose time stands still until the test moves it. All waiting in the program goes through a queue.
class SerialQueue {
public:
    using Function = std::function<void()>;

    SerialQueue() = default;
    SerialQueue(const SerialQueue&) = delete;
    SerialQueue& operator=(const SerialQueue&) = delete;
    virtual ~SerialQueue() = default;

    /// Runs `function` on the queue's next turn, never inside the caller. Any thread. The function must not
    /// throw.
    virtual void async(Function function) = 0;

    /// Runs `function` once `delay` has passed, unless the returned item is cancelled first. Any thread.
    virtual WorkItem after(Duration delay, Function function) = 0;

    /// Monotonic time as this queue sees it. Any thread.
    virtual Instant now() const = 0;

    /// Whether the caller runs on this queue.
    virtual bool isCurrent() const = 0;

    /// Runs `function` on the queue and returns when it has run; at once when already on the queue. A queue
    /// that has ended runs nothing: it returns all the same.
    /// Never call this from a queue that the target may itself be waiting for: neither would go on.
    void sync(const Function& function);
};

} // namespace corvane
