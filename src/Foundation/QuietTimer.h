#pragma once

#include "Foundation/SerialQueue.h"

#include <functional>
#include <memory>
#include <optional>

namespace corvane {

/// Calls a function once nothing has happened for a while.
///
/// Every `restart` begins the wait anew. A restart only notes the time: however many there are, one work item
/// at most is waiting on the queue, so a device that floods us with blocks cannot pile up timers.
///
/// With a `limit`, restarts put it off no longer than that after the first of them: what never falls quiet
/// must not keep others waiting for ever.
///
/// Used on its queue only. Destroying it cancels it.
class QuietTimer {
public:
    QuietTimer(SerialQueue& queue, Duration delay, std::function<void()> onQuiet,
        std::optional<Duration> limit = std::nullopt);
    QuietTimer(const QuietTimer&) = delete;
    QuietTimer& operator=(const QuietTimer&) = delete;
    ~QuietTimer();

    void restart();
    void cancel();

private:
    struct State;
    static void schedule(const std::shared_ptr<State>& state, Duration delay);
    std::shared_ptr<State> m_state;
};

} // namespace corvane
