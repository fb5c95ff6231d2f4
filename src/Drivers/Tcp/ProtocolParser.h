#pragma once

#include "Drivers/Contract/RouterDriver.h"
#include "Drivers/Tcp/DelimitedReader.h"
#include "Foundation/QuietTimer.h"

#include <QByteArray>
#include <QByteArrayView>

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane {

using namespace Qt::StringLiterals;

/// What a TCP driver needs of its protocol: all that the device said, and what it means.
///
/// Knows no socket: bytes are handed in, and what is to be sent goes out through a function that the driver
/// gives it. What one delivery causes goes out together at its end: the events in one batch, then the bytes
/// in one piece. Used, and destroyed, on the driver's queue only; its state therefore needs no lock.
class ProtocolParser {
public:
    ProtocolParser(const ProtocolParser&) = delete;
    ProtocolParser& operator=(const ProtocolParser&) = delete;
    virtual ~ProtocolParser() = default;

    /// `writeToLink` takes bytes to the wire. Set before the link is up; without it nothing goes out.
    void onSend(std::function<void(const QByteArray&)> writeToLink)
    {
        m_writeToLink = std::move(writeToLink);
    }

    /// The link is up: says what opens the conversation.
    void begin();

    /// Takes what the network brought, in pieces of any size. Never fails: what can't be understood is passed
    /// over.
    void ingest(std::string_view bytes);

    /// The link is gone: every timer is stopped, and nothing comes from this parser any more. Safe to repeat.
    void end();

protected:
    /// How long a device that never falls silent may put off its first picture, once that could be taken.
    static constexpr Duration firstPictureLimit = std::chrono::seconds(5);

    ProtocolParser(SerialQueue& queue, RouterEventStream events);

    /// Says what opens the conversation; nothing where the device speaks first.
    virtual void greet() { }

    /// Reads a delivery, or what it makes of the protocol.
    virtual void read(std::string_view bytes) = 0;

    /// Collects bytes for the device.
    void say(QByteArrayView bytes) { m_unsent.append(bytes); }

    /// Collects an event for the controller.
    template <typename Event>
    void yield(Event&& event)
    {
        m_batch.emplace_back(std::forward<Event>(event));
    }

    /// Collects the event that the device declined a command.
    void refuse(const QString& message) { yield(driverEvent::CommandRefused{message}); }

    /// Hands each piece that a delivery completes to `onPiece`; the operator is told of one that has no end.
    template <typename OnPiece>
    void readPieces(DelimitedReader& reader, std::string_view bytes, OnPiece&& onPiece)
    {
        if (reader.feed(bytes, std::forward<OnPiece>(onPiece)))
            refuse(u"The router sent a message without an end; it was left out."_s);
    }

    /// Lets out what was collected. Called by the parser itself where neither a delivery nor a timer is at
    /// work.
    virtual void flush();

    /// A timer that ends with the link; what `onQuiet` collects goes out after it. Lives as long as the
    /// parser. `limit` as in `QuietTimer`.
    QuietTimer& addTimer(
        Duration delay, std::function<void()> onQuiet, std::optional<Duration> limit = std::nullopt);

    [[nodiscard]] SerialQueue& queue() const { return m_queue; }

private:
    SerialQueue& m_queue;
    const RouterEventStream m_events;
    std::function<void(const QByteArray&)> m_writeToLink;
    bool m_hasEnded = false;
    std::vector<RouterDriverEvent> m_batch;
    QByteArray m_unsent;
    // Their places must not move: they are referred to.
    std::deque<QuietTimer> m_timers;
};

/// Makes a parser that is destroyed on `queue`, whoever lets go of it last: one of its timers may just be
/// firing there.
template <typename Parser, typename... Arguments>
std::shared_ptr<Parser> makeParser(SerialQueue& queue, Arguments&&... arguments)
{
    auto parser = std::make_unique<Parser>(std::forward<Arguments>(arguments)...);
    return {parser.release(), [&queue](Parser* ended) {
                std::shared_ptr<Parser> owner(ended);
                if (!queue.isCurrent())
                    queue.async([owner = std::move(owner)] {});
            }};
}

} // namespace corvane
