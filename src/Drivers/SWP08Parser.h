#pragma once

#include "Drivers/InterrogatingParser.h"
#include "Drivers/SWP08Frame.h"

#include <deque>
#include <variant>

namespace corvane {

/// Reads and writes Pro-Bel SW-P-08.
///
/// Every sound frame is acknowledged, whether it means something here or not, and every other refused.
/// Of the messages, the tally and the answer to a connect are understood, each for one crosspoint; their
/// extended forms are not. All numbers are zero-based on the wire. Matrix 0 alone is addressed. Level 0 alone
/// is asked for; a report of another level counts like any other.
///
/// Used and destroyed on its queue only.
class SWP08Parser final : public InterrogatingParser {
public:
    /// Four bits of multiplier and seven of number are what can be sent. What can be reported back ends at
    /// 1024.
    static constexpr qint64 maximumPortCount = qint64{16} * 128;

    SWP08Parser(const RouterConnection& connection, SerialQueue& queue, RouterEventStream events);

    [[nodiscard]] QByteArray commandFor(const Route& route) override;
    void commandNotSent(qint64 destination) override;

    /// Bytes beyond the last port are cut off, as are all but the lowest four bits of the level.
    [[nodiscard]] static QByteArray connectPayload(const Route& route);

protected:
    void read(std::string_view bytes) override;
    void interrogate(qint64 destination) override;

private:
    struct Connect {
        qint64 destination = 0;
    };
    struct Interrogate { };
    using PendingCommand = std::variant<Connect, Interrogate>;

    void processFrame(std::string_view body);
    void handleAcknowledgement();
    void handleRefusal();
    void abortPendingConnect(qint64 destination);

    SWP08FrameReader m_reader;
    /// Sent and not yet answered, oldest first. An answer does not say what it belongs to: order alone tells.
    std::deque<PendingCommand> m_pendingCommands;
};

} // namespace corvane
