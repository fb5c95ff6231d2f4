#pragma once

#include "Foundation/SerialQueue.h"

#include <deque>
#include <map>
#include <mutex>
#include <thread>

namespace corvane {

/// A queue on the test's own thread, whose time moves only when the test says so.
///
/// Nothing runs by itself: `runReady` runs what is due now, `advance` moves time and runs what falls due,
/// each at its own moment. Functions may be queued from any thread.
class ManualQueue final : public SerialQueue {
public:
    void async(Function function) override;
    WorkItem after(Duration delay, Function function) override;
    Instant now() const override;
    bool isCurrent() const override { return std::this_thread::get_id() == m_owner; }

    /// Runs everything that is ready, and what that makes ready, until there is nothing left.
    void runReady();

    void advance(Duration duration);

    /// How many items wait for their time, cancelled ones included.
    [[nodiscard]] std::size_t waitingCount() const;

private:
    bool runNext();

    const std::thread::id m_owner = std::this_thread::get_id();
    mutable std::mutex m_mutex;
    std::deque<Function> m_ready;
    std::multimap<Instant, WorkItem> m_waiting;
    // Not zero, so that a forgotten start time cannot pass for a real one.
    Instant m_now{std::chrono::hours(1)};
};

} // namespace corvane
