#pragma once

#include "Drivers/Interrogating/InterrogatingParser.h"
#include "Drivers/SWP08/SWP08Frame.h"

#include <deque>
#include <set>
#include <variant>
#include <vector>

namespace corvane {

/// Reads and writes Pro-Bel SW-P-08.
///
/// Every sound frame is acknowledged, whether it means something here or not, and every other refused.
/// Of the messages, the tally and the answer to a connect are understood, each for one crosspoint. All
/// numbers are zero-based on the wire. Matrix 0 alone is addressed. Level 0 alone is asked for; a report of
/// another level counts like any other.
///
/// Many routers report and take high ports in extended messages only, with two bytes for each number. These
/// are understood at any time. What got no answer is asked for once more in them when the first picture is
/// out, and a port that the router has reported in no other form is spoken of in them from then on.
///
/// Used and destroyed on its queue only.
class SWP08Parser final : public InterrogatingParser {
public:
    /// Four bits of multiplier and seven of number are what can be sent. What can be reported back ends at
    /// 1024, but for extended reports.
    static constexpr qint64 maximumPortCount = qint64{16} * 128;

    SWP08Parser(const RouterConnection& connection, SerialQueue& queue, RouterEventStream events);

    [[nodiscard]] QByteArray commandFor(const Route& route) override;
    void commandNotSent(qint64 destination) override;

    /// Bytes beyond the last port are cut off, as are all but the lowest four bits of the level.
    [[nodiscard]] static QByteArray connectPayload(const Route& route);
    [[nodiscard]] static QByteArray extendedConnectPayload(const Route& route);

protected:
    void read(std::string_view bytes) override;
    void interrogate(qint64 destination) override;
    void pictureTaken() override;

private:
    struct Connect {
        qint64 destination = 0;
    };
    struct Interrogate { };
    using PendingCommand = std::variant<Connect, Interrogate>;

    /// In which messages the router has reported a destination so far.
    enum class Form : char { none, extended, ordinary };

    [[nodiscard]] Form form(qint64 destination) const;
    void setForm(qint64 destination, Form form);
    [[nodiscard]] bool isExtended(const Route& route) const;
    void interrogateExtended(qint64 destination);
    void ask(const QByteArray& payload);
    void handleReport(const Route& route);
    void handleExtendedReport(const Route& route);
    void processFrame(std::string_view body);
    void handleAcknowledgement();
    void handleRefusal();
    void abortPendingConnect(qint64 destination);

    SWP08FrameReader m_reader;
    /// Sent and not yet answered, oldest first. An answer does not say what it belongs to: order alone tells.
    std::deque<PendingCommand> m_pendingCommands;
    /// By destination, of all that are asked for.
    std::vector<Form> m_forms;
    /// Reported sources that only an extended report can name.
    std::set<qint64> m_extendedSources;
};

} // namespace corvane
