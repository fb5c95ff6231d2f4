#pragma once

#include "Foundation/SerialQueue.h"

#include <algorithm>
#include <deque>
#include <functional>
#include <iterator>
#include <memory>
#include <mutex>
#include <stop_token>
#include <utility>
#include <vector>

namespace corvane {

/// An ordered stream with an unbounded buffer, many producers and one consumer.
///
/// Producing never blocks; a producer that can pause asks whether it should. What is produced before the
/// consumer starts is kept for it. The consumer hops to its queue once for all that has piled up, not once an
/// event, and works in slices of a few milliseconds, so that a burst of a million events neither costs a
/// million hops nor holds the queue's thread.
///
/// Copies are the same stream. Usable from any thread.
template <typename Event>
class EventStream {
public:
    /// How long the consumer holds its queue before it lets others have a turn.
    static constexpr Duration slice = std::chrono::milliseconds(3);

    /// From so many waiting events on, a producer should pause.
    static constexpr std::size_t longBacklog = 200'000;

    EventStream() : m_state(std::make_shared<State>()) { }

    /// Appends one event; does nothing once the stream is finished.
    void yield(Event event) const
    {
        append(1, [&](State& state) { lastChunk(state).push_back(std::move(event)); });
    }

    /// Appends all of `events` in order under one lock, and leaves `events` empty. While the consumer keeps
    /// up, what the producer gets back has room for as many again: a steady stream allocates nothing and
    /// moves no event.
    void yield(std::vector<Event>&& events) const
    {
        if (events.empty())
            return;
        append(events.size(), [&](State& state) {
            if (!state.pending.empty() && state.pending.back().size() + events.size() <= chunkSize) {
                std::ranges::move(events, std::back_inserter(state.pending.back()));
                return;
            }
            state.pending.push_back(std::move(events));
            events = std::exchange(state.spare, {});
        });
        events.clear();
    }

    /// Drops whatever is yielded from here on. What was yielded before still reaches the consumer.
    void finish() const
    {
        std::function<void()> dropped;
        const std::lock_guard lock(m_state->mutex);
        m_state->finished = true;
        std::swap(dropped, m_state->onShrunk);
    }

    [[nodiscard]] bool isFinished() const
    {
        const std::lock_guard lock(m_state->mutex);
        return m_state->finished;
    }

    /// False unless so many events wait for the consumer that their producer should pause. `resume` is then
    /// kept, in place of an earlier one, and called once on the consumer's queue when the backlog has halved;
    /// never if the stream is finished before.
    bool callWhenShrunk(std::function<void()> resume) const
    {
        const std::lock_guard lock(m_state->mutex);
        if (m_state->finished || m_state->pendingCount < longBacklog)
            return false;
        m_state->onShrunk = std::move(resume);
        return true;
    }

    /// Starts the one consumer: `handler` gets each event, in order, on `queue`. Call once in a stream's
    /// life. After `stop` is requested on the queue, no further event is handled. `queue` must outlive the
    /// stream.
    void consume(SerialQueue& queue, std::stop_token stop, std::function<void(Event&&)> handler) const
    {
        const std::lock_guard lock(m_state->mutex);
        m_state->queue = &queue;
        m_state->stop = std::move(stop);
        m_state->handler = std::move(handler);
        if (!m_state->pending.empty())
            scheduleLocked(m_state);
    }

private:
    using Chunk = std::vector<Event>;

    /// Single events pile up in chunks of this many, so that a backlog neither moves when it grows, which
    /// would keep both sides waiting, nor is destroyed all at once.
    static constexpr std::size_t chunkSize = 1024;
    /// Room for more events than this is given back after a burst.
    static constexpr std::size_t keptRoom = 8192;

    struct State {
        std::mutex mutex;
        std::deque<Chunk> pending;
        std::size_t pendingCount = 0;
        std::function<void()> onShrunk;
        /// An empty chunk with room, if there is one.
        Chunk spare;
        bool finished = false;
        bool hopScheduled = false;
        SerialQueue* queue = nullptr;
        // Set once before the first hop, then read on the queue only.
        std::stop_token stop;
        std::function<void(Event&&)> handler;
        // Taken over from `pending`, touched on the queue only.
        Chunk batch;
        std::size_t handled = 0;
    };

    template <typename Append>
    void append(std::size_t count, Append&& add) const
    {
        const std::lock_guard lock(m_state->mutex);
        if (m_state->finished)
            return;
        add(*m_state);
        m_state->pendingCount += count;
        if (m_state->queue)
            scheduleLocked(m_state);
    }

    static Chunk& lastChunk(State& state)
    {
        if (state.pending.empty() || state.pending.back().size() >= chunkSize) {
            state.pending.push_back(std::exchange(state.spare, {}));
            state.pending.back().reserve(chunkSize);
        }
        return state.pending.back();
    }

    static void scheduleLocked(const std::shared_ptr<State>& state)
    {
        if (std::exchange(state->hopScheduled, true))
            return;
        state->queue->async([state] { handleSlice(state); });
    }

    static void handleSlice(const std::shared_ptr<State>& state)
    {
        const auto end = state->queue->now() + slice;
        while (takeBatch(*state)) {
            // The clock is read once in a while, for reading it costs as much as handling a small event.
            for (int i = 0; i < 64 && state->handled < state->batch.size(); ++i) {
                if (state->stop.stop_requested()) {
                    drop(*state);
                    break;
                }
                state->handler(std::move(state->batch[state->handled++]));
            }
            if (state->queue->now() >= end) {
                state->queue->async([state] { handleSlice(state); });
                return;
            }
        }
    }

    /// Makes sure that there is something to handle; false ends the hop.
    static bool takeBatch(State& state)
    {
        if (state.handled < state.batch.size())
            return true;
        drop(state);
        if (const auto resume = takeNextChunk(state))
            resume();
        return !state.batch.empty();
    }

    /// Returns what is to be called now that the backlog has shrunk, if there is anything.
    static std::function<void()> takeNextChunk(State& state)
    {
        const std::lock_guard lock(state.mutex);
        if (state.pending.empty()) {
            state.hopScheduled = false;
            return {};
        }
        state.spare = std::exchange(state.batch, std::move(state.pending.front()));
        state.pending.pop_front();
        state.pendingCount -= state.batch.size();
        return state.pendingCount <= longBacklog / 2 ? std::exchange(state.onShrunk, {}) : nullptr;
    }

    static void drop(State& state)
    {
        if (state.batch.capacity() > keptRoom)
            state.batch = {};
        state.batch.clear();
        state.handled = 0;
    }

    std::shared_ptr<State> m_state;
};

} // namespace corvane
