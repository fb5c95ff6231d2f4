#pragma once

#include "Drivers/Tcp/DelimitedReader.h"
#include "Drivers/Tcp/Ports.h"
#include "Drivers/Tcp/ProtocolParser.h"

#include <QByteArray>

#include <optional>
#include <string_view>

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
/// the controller may believe otherwise. Port numbers are zero-based on the wire. What is told of a port that
/// the device does not have is passed over; a source may have any number. A count above `maximumPortCount`,
/// or below none, is taken for 0.
///
/// Used and destroyed on its queue only.
class VideohubParser final : public ProtocolParser {
public:
    /// Devices without an "END PRELUDE:" block tell the end of their state by falling silent.
    static constexpr Duration preludeQuiet = std::chrono::milliseconds(1200);

    /// A burst of refusals is answered by reading the matrix once.
    static constexpr Duration resyncInterval = std::chrono::seconds(2);

    /// In bytes. A greeting names every port of the largest matrix in one block.
    static constexpr std::size_t longestBlock = std::size_t{64} << 20;

    /// `deviceName` serves until the device tells a name of its own.
    VideohubParser(QString deviceName, SerialQueue& queue, RouterEventStream events);

    /// What we hold may no longer be the device's truth: asks for the matrix again, but not within
    /// `resyncInterval` of the last time.
    void requestResync();

    /// Whether the device has shown that it has locks.
    [[nodiscard]] bool locksSeen() const { return m_locksSeen; }

    /// What the device last reported for a destination: "U" unlocked, "O" locked from this address, "L" from
    /// another.
    [[nodiscard]] char lockLetter(qint64 destination) const;

protected:
    void read(std::string_view bytes) override;

private:
    void askForMatrix();
    /// The text that asks for the matrix; absent within `resyncInterval` of the last one.
    [[nodiscard]] std::optional<QByteArray> resyncQuery();

    [[nodiscard]] bool exists(PortKind kind, qint64 index) const;
    void handle(std::string_view block);
    void handleRefusal();
    void handleDevice(std::string_view line);
    void handleLabel(PortKind kind, std::string_view line);
    void handleRoute(std::string_view line);
    void handleLock(std::string_view line);

    void finalizePrelude();
    [[nodiscard]] RouterState completeState(VideohubPrelude prelude) const;

    const QString m_deviceName;
    DelimitedReader m_reader{"\n\n", CarriageReturn::dropped, longestBlock};
    /// As many as any matrix may have until the size is known.
    qint64 m_sourceCount = maximumPortCount;
    qint64 m_destinationCount = maximumPortCount;
    /// Absent once `Connected` has gone out.
    std::optional<VideohubPrelude> m_prelude;
    PortTable<char> m_locks;
    bool m_locksSeen = false;
    std::optional<Instant> m_lastResync;
    QuietTimer& m_finalizeTimer;
};

} // namespace corvane
