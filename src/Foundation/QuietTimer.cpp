#include "Foundation/QuietTimer.h"

#include <algorithm>
#include <utility>

namespace corvane {

struct QuietTimer::State {
    SerialQueue& queue;
    const Duration delay;
    const std::function<void()> onQuiet;
    const std::optional<Duration> limit;
    std::optional<Instant> deadline;
    std::optional<Instant> latest;
    std::optional<WorkItem> waiting;
};

QuietTimer::QuietTimer(
    SerialQueue& queue, Duration delay, std::function<void()> onQuiet, std::optional<Duration> limit)
    : m_state(std::make_shared<State>(State{queue, delay, std::move(onQuiet), limit, {}, {}, {}}))
{
}

QuietTimer::~QuietTimer()
{
    cancel();
}

void QuietTimer::restart()
{
    auto& state = *m_state;
    const auto now = state.queue.now();
    if (!state.latest)
        state.latest = state.limit ? now + *state.limit : Instant::max();
    state.deadline = std::min(now + state.delay, *state.latest);
    if (!state.waiting)
        schedule(m_state, state.delay);
}

void QuietTimer::cancel()
{
    m_state->deadline.reset();
    m_state->latest.reset();
    if (const auto waiting = std::exchange(m_state->waiting, std::nullopt))
        WorkItem(*waiting).cancel();
}

void QuietTimer::schedule(const std::shared_ptr<State>& state, Duration delay)
{
    // Weak: the item may still be waiting when its owner is long gone.
    state->waiting = state->queue.after(delay, [weak = std::weak_ptr(state)] {
        const auto self = weak.lock();
        if (!self || !self->deadline)
            return;
        self->waiting.reset();
        const auto left = *self->deadline - self->queue.now();
        if (left > Duration::zero()) {
            schedule(self, left);
            return;
        }
        self->deadline.reset();
        self->latest.reset();
        self->onQuiet();
    });
}

} // namespace corvane
