#include "Foundation/Task.h"

#include <QDebug>

#include <exception>
#include <utility>

namespace corvane {

namespace {

QCoro::Task<> runToItsEnd(std::function<QCoro::Task<>()> body)
{
    try {
        co_await body();
    } catch (const std::exception& fault) {
        qCritical("A task ended with an unhandled failure: %s", fault.what());
    } catch (...) {
        qCritical("A task ended with an unhandled failure of unknown kind");
    }
}

} // namespace

void startTask(SerialQueue& queue, std::function<QCoro::Task<>()> body)
{
    queue.async([body = std::move(body)]() mutable { runToItsEnd(std::move(body)); });
}

SleepAwaiter::SleepAwaiter(SerialQueue& queue, Duration delay, std::stop_token stop)
    : m_queue(queue), m_delay(delay), m_stop(std::move(stop))
{
}

void SleepAwaiter::await_suspend(std::coroutine_handle<> waiting)
{
    // Whichever comes first resumes; the item runs at most once.
    WorkItem wake([waiting] { waiting.resume(); });
    auto& queue = m_queue;
    queue.after(m_delay, [wake]() mutable { wake.perform(); });
    const auto wakeNow = [&queue, wake] { queue.async([wake]() mutable { wake.perform(); }); };
    m_onStop = std::make_unique<std::stop_callback<std::function<void()>>>(std::move(m_stop), wakeNow);
}

} // namespace corvane
