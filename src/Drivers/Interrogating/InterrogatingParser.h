#pragma once

#include "Drivers/Tcp/PortTable.h"
#include "Drivers/Tcp/ProtocolParser.h"

#include <optional>
#include <set>

namespace corvane {

/// A protocol in which the router tells neither its size nor its names.
struct InterrogatedProtocol {
    /// As it stands before the size in the model text.
    QString name;
    RouterVendor vendor = RouterVendor::simulator;
    /// How many sources, and how many destinations, are asked for at most, whatever is saved.
    qint64 maximumPortCount = 0;
};

/// The conversation with a router that has to be asked for each of its crosspoints, and the picture that
/// comes of it.
///
/// All questions go out at once when the link is up, and one again whenever the picture of a destination may
/// be wrong. The size is the one saved with the connection, at least 2 by 2 and at most what the protocol
/// allows; ports are numbered. Reports are gathered until none has come for a second, or they have gone on
/// for five; then they go out as one `Connected`, however few they are. From then on a report yields an event
/// only if it is news, or was asked for because a command failed. There is one picture whatever the level of
/// a report: the router's last word for a destination holds.
///
/// A protocol adds how it reads, asks and commands. Used and destroyed on its queue only.
class InterrogatingParser : public ProtocolParser {
public:
    static constexpr qint64 minimumPortCount = 2;

    /// The router does not tell the end of its answers: it is told by its silence.
    static constexpr Duration answersQuiet = std::chrono::seconds(1);

    /// How long a device may take for the first words that we understand.
    static constexpr Duration speechLimit = std::chrono::seconds(5);

    /// The bytes that make this route. The answer is waited for from now on, so they must be sent.
    [[nodiscard]] virtual QByteArray commandFor(const Route& route) = 0;

    /// The command for this destination could not be sent: asks what the destination shows.
    virtual void commandNotSent(qint64 destination);

protected:
    InterrogatingParser(const RouterConnection& connection, InterrogatedProtocol protocol, SerialQueue& queue,
        RouterEventStream events);

    /// Asks for everything. Unless something is reported within `speechLimit`, the operator reads once that
    /// this device does not speak the protocol; a later report is still taken.
    void greet() final;

    void flush() final;

    /// Says the question for one destination.
    virtual void interrogate(qint64 destination) = 0;

    /// The first picture is out: a protocol may ask for what it lacks.
    virtual void pictureTaken() { }

    [[nodiscard]] qint64 destinationCount() const { return m_destinationCount; }

    /// One crosspoint as the device reports it. False for ports beyond the size: that is dropped, and the
    /// operator warned once.
    bool report(const Route& route);

    /// The device says that this destination shows nothing.
    void reportNothing(qint64 level, qint64 destination);

    /// What the operator sees of this destination may be what a command asked for and the router did not do.
    /// Asks again, and tells the answer even if it is no news; where none comes for `answersQuiet`, what was
    /// known.
    void reread(qint64 destination);
    [[nodiscard]] bool isBeingReread(qint64 destination) const { return m_rereads.contains(destination); }

private:
    void learn(qint64 level, qint64 destination, std::optional<qint64> source);
    [[nodiscard]] std::optional<qint64> knownSource(qint64 destination) const;
    void warnOfSize();
    void checkSpeech();
    void takePicture();
    void endRereads();
    [[nodiscard]] QString sizeText() const;
    [[nodiscard]] RouterState completeState() const;

    const QString m_deviceName;
    const InterrogatedProtocol m_protocol;
    const qint64 m_sourceCount;
    const qint64 m_destinationCount;
    /// Destination to source; no source where the device said so.
    PortTable<std::optional<qint64>> m_routing;
    /// Destinations whose next report is told in any case.
    std::set<qint64> m_rereads;
    bool m_reportReceived = false;
    bool m_rangeWarned = false;
    bool m_connectedEmitted = false;
    /// Since the last flush something was reported that belongs to the first picture.
    bool m_isGathering = false;
    QuietTimer& m_finalizeTimer;
    QuietTimer& m_speechCheck;
    QuietTimer& m_rereadsEnd;
};

} // namespace corvane
