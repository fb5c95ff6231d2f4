#pragma once

#include "Drivers/EventText.h"
#include "support/ManualQueue.h"
#include "support/Pump.h"

#include <optional>
#include <stdexcept>
#include <utility>

namespace corvane {

/// Runs a driver's operation that ends without waiting; what it threw, if it did.
inline std::optional<DriverError> outcome(QCoro::Task<> operation)
{
    std::optional<DriverError> thrown;
    bool isOver = false;
    [](QCoro::Task<> running, auto& error, bool& over) -> QCoro::Task<> {
        try {
            co_await running;
        } catch (const DriverError& failure) {
            error = failure;
        }
        over = true;
    }(std::move(operation), thrown, isOver);
    if (!isOver)
        throw std::logic_error("The operation has not ended.");
    return thrown;
}

/// A driver on a queue that the test moves, and what it reports.
template <typename Driver>
class DriverHarness {
    ManualQueue& m_queue;
    // Of its own, so that a test can look at what was reported while the driver's queue stands still.
    ManualQueue m_logQueue;

public:
    template <typename... Arguments>
    explicit DriverHarness(ManualQueue& queue, const RouterConnection& connection, Arguments&&... arguments)
        : m_queue(queue),
          driver(std::make_unique<Driver>(connection, queue, std::forward<Arguments>(arguments)...)),
          log(driver->events(), m_logQueue)
    {
    }

    DriverHarness(const DriverHarness&) = delete;
    DriverHarness& operator=(const DriverHarness&) = delete;

    /// What the driver has left on its queue belongs to it, and ends before the queue does.
    ~DriverHarness()
    {
        driver.reset();
        settle();
    }

    bool pump(const std::function<bool()>& condition)
    {
        return pumpUntil(condition, {&m_queue, &m_logQueue});
    }

    bool pumpUntilSays(const std::string& text)
    {
        return pump([&] { return log.contains(text); });
    }

    /// Moves sockets and the log, but nothing on the driver's queue.
    bool pumpWithoutQueueUntilSays(const std::string& text)
    {
        return pumpUntil([&] { return log.contains(text); }, {&m_logQueue});
    }

    void settle() { pumpUntilIdle({&m_queue, &m_logQueue}); }

    void advance(Duration time)
    {
        m_queue.advance(time);
        settle();
    }

    std::unique_ptr<Driver> driver;
    EventLog log;
};

} // namespace corvane
