#pragma once

#include "Drivers/PortTable.h"
#include "Drivers/RouterDriver.h"
#include "Foundation/QuietTimer.h"

#include <vector>

namespace corvane {

/// A protocol in which the router tells neither its size nor its names.
struct InterrogatedProtocol {
    /// As it stands before the size in the model text.
    QString name;
    RouterVendor vendor = RouterVendor::simulator;
    /// How many sources, and how many destinations, are asked for at most, whatever is saved.
    qint64 maximumPortCount = 0;
};

/// The picture of a router that has to be asked for each of its crosspoints.
///
/// Its size is the one saved with the connection, at least 2 by 2 and at most what the protocol allows; its
/// ports are numbered. Reports are gathered in silence until none has come for a second, however few they
/// are; then they go out as one `Connected`. From then on a report yields an event only if it is news. There
/// is one picture whatever the level of a report: the router's last word for a destination holds.
///
/// Events are collected and go out with `flush`. Used and destroyed on its queue only.
class InterrogatedMatrix {
public:
    static constexpr qint64 minimumPortCount = 2;

    /// The router does not tell the end of its answers: it is told by its silence.
    static constexpr Duration answersQuiet = std::chrono::seconds(1);

    /// How long a device may take for the first words that we understand.
    static constexpr Duration speechLimit = std::chrono::seconds(5);

    InterrogatedMatrix(const RouterConnection& connection, InterrogatedProtocol protocol, SerialQueue& queue,
        RouterEventStream events);

    [[nodiscard]] qint64 destinationCount() const { return m_destinationCount; }

    /// The questions are out. Unless something is reported within `speechLimit`, the operator reads once that
    /// this device does not speak the protocol; a later report is still taken.
    void expectReports() { m_speechCheck.restart(); }

    /// One crosspoint as the device reports it. False for ports beyond the size: that is dropped, and the
    /// operator warned once.
    bool report(const Route& route);

    /// The device declined a command.
    void refuse(const QString& message);

    void flush();

private:
    void warnOfSize();
    void checkSpeech();
    void finalize();
    [[nodiscard]] QString sizeText() const;
    [[nodiscard]] RouterState completeState() const;

    const QString m_deviceName;
    const InterrogatedProtocol m_protocol;
    const qint64 m_sourceCount;
    const qint64 m_destinationCount;
    const RouterEventStream m_events;
    /// Destination to source.
    PortTable<qint64> m_routing;
    bool m_reportReceived = false;
    bool m_rangeWarned = false;
    bool m_connectedEmitted = false;
    /// Since the last flush something was reported that belongs to the first picture.
    bool m_isGathering = false;
    std::vector<RouterDriverEvent> m_batch;
    QuietTimer m_finalizeTimer;
    QuietTimer m_speechCheck;
};

} // namespace corvane
