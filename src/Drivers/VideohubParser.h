#pragma once

#include "Drivers/DelimitedReader.h"
#include "Drivers/Ports.h"
#include "Drivers/ProtocolParser.h"
#include "Drivers/RouterDriver.h"
#include "Foundation/QuietTimer.h"

#include <QByteArray>

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace corvane {

/// What is gathered before the device's state is complete, and not needed after.
struct VideohubPrelude {
    QString model;
    QString friendlyName;
    qint64 inputCount = 0;
    qint64 outputCount = 0;
    PortTable<QString> inputLabels;
    PortTable<QString> outputLabels;
    LevelRouting routing;

    [[nodiscard]] bool isComplete() const { return inputCount > 0 && outputCount > 0 && !routing.isEmpty(); }
};

/// Reads the Blackmagic Videohub text protocol: blocks of a header line and body lines, ending in a blank
/// line.
///
/// The device opens with its whole state. That is gathered in silence until it is complete, and goes out as
/// one `Connected`; from then on every line yields its own event, whether or not it tells anything new, for
/// the controller may believe otherwise. Port numbers are zero-based on the wire, and are not checked against
/// the size that the device declared. A count above `maximumPortCount`, or below none, is taken for 0.
///
/// Used and destroyed on its queue only.
class VideohubParser final : public ProtocolParser {
public:
    /// Devices without an "END PRELUDE:" block tell the end of their state by falling silent.
    static constexpr Duration preludeQuiet = std::chrono::milliseconds(1200);

    /// A burst of refusals is answered by reading the matrix once.
    static constexpr Duration resyncInterval = std::chrono::seconds(2);

    /// `deviceName` serves until the device tells a name of its own.
    VideohubParser(QString deviceName, SerialQueue& queue, RouterEventStream events);

    /// `resync` is called when what we hold may no longer be the device's truth. Set before the first byte.
    void onResyncNeeded(std::function<void()> resync) { m_onResyncNeeded = std::move(resync); }

    /// Does what `onResyncNeeded` was given, if anything.
    void requestResync() const;

    void ingest(std::string_view bytes) override;

    /// The text that asks for the matrix again; absent within `resyncInterval` of the last one.
    [[nodiscard]] std::optional<QByteArray> resyncQuery();

    /// Whether the device has shown that it has locks.
    [[nodiscard]] bool locksSeen() const { return m_locksSeen; }

    /// What the device last reported for a destination: "U" unlocked, "O" locked from this address, "L" from
    /// another.
    [[nodiscard]] char lockLetter(qint64 destination) const;

private:
    void handle(std::string_view block);
    void handleBody(std::string_view header, std::string_view body);
    void handleRefusal();
    void handleDevice(std::string_view line);
    void handleLabel(PortKind kind, std::string_view line);
    void handleRoute(std::string_view line);
    void handleLock(std::string_view line);

    void finalizePrelude();
    [[nodiscard]] RouterState completeState(VideohubPrelude prelude) const;
    void flush();

    const QString m_deviceName;
    SerialQueue& m_queue;
    const RouterEventStream m_events;
    std::function<void()> m_onResyncNeeded;
    DelimitedReader m_reader{"\n\n", CarriageReturn::dropped};
    /// Absent once `Connected` has gone out.
    std::optional<VideohubPrelude> m_prelude;
    PortTable<char> m_locks;
    bool m_locksSeen = false;
    std::optional<Instant> m_lastResync;
    /// What one delivery brought; goes out at its end.
    std::vector<RouterDriverEvent> m_batch;
    QuietTimer m_finalizeTimer;
};

} // namespace corvane
