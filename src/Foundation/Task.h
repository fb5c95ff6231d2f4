#pragma once

#include "Foundation/SerialQueue.h"

#include <QCoroTask>

#include <coroutine>
#include <functional>
#include <memory>
#include <stop_token>

namespace corvane {

/// Starts `body` on the queue's next turn, never inside the caller, and keeps it alive to its end: what a
/// lambda coroutine captured stays valid throughout. The body handles its own failures; an exception that
/// escapes it is a fault of the program, reported on standard error instead of being lost.
void startTask(SerialQueue& queue, std::function<QCoro::Task<>()> body);

/// Awaitable: resumes on `queue` once `delay` has passed, or as soon as `stop` is requested. Never throws: an
/// interrupted wait resumes like any other, and the caller may check the token. Await it on `queue`.
class SleepAwaiter {
public:
    SleepAwaiter(SerialQueue& queue, Duration delay, std::stop_token stop);

    bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<> waiting);
    void await_resume() const noexcept { }

private:
    SerialQueue& m_queue;
    Duration m_delay;
    std::stop_token m_stop;
    // On the heap, for a stop callback can't move and an awaiter must.
    std::unique_ptr<std::stop_callback<std::function<void()>>> m_onStop;
};

inline SleepAwaiter sleepFor(SerialQueue& queue, Duration delay, std::stop_token stop = {})
{
    return {queue, delay, std::move(stop)};
}

} // namespace corvane
