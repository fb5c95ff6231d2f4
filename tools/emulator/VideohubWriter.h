#pragma once

#include "emulator/EmulatedMatrix.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace corvane::emulator {

using namespace Qt::StringLiterals;

/// How firmware versions differ. Each is off on a present-day device.
struct VideohubQuirks {
    bool omitEndPrelude = false;
    bool crLfLineEnds = false;
    /// "VIDEOHUB OUTPUT ROUTING:" stands where "VIDEO OUTPUT ROUTING:" should.
    bool olderRoutingHeader = false;
    /// Blocks about networks, alarms, signals, serial ports and things nobody has heard of, among the usual
    /// ones.
    bool extraBlocks = false;
    /// A device that cannot lock: it says nothing of locks and refuses to hear of them.
    bool omitLocks = false;
    bool omitConfiguration = false;
    /// A client's own locks are shown to it as another's.
    bool ownLocksLookForeign = false;
    /// After a change the whole table is told instead of the changed lines.
    bool tellWholeTables = false;
};

struct VideohubIdentity {
    QString protocolVersion = u"2.8"_s;
    /// Made from the size where empty.
    QString modelName;
    /// Not told where empty.
    QString friendlyName = u"Emulated Videohub"_s;
};

namespace videohub {

inline constexpr auto deviceHeader = "VIDEOHUB DEVICE:";
inline constexpr auto inputLabelsHeader = "INPUT LABELS:";
inline constexpr auto outputLabelsHeader = "OUTPUT LABELS:";
inline constexpr auto locksHeader = "VIDEO OUTPUT LOCKS:";
inline constexpr auto routingHeader = "VIDEO OUTPUT ROUTING:";
inline constexpr auto olderRoutingHeader = "VIDEOHUB OUTPUT ROUTING:";

} // namespace videohub

/// Puts a matrix into a Videohub's words, as one client is told them. Refers to what it is made with.
class VideohubWriter {
public:
    VideohubWriter(const EmulatedMatrix& matrix, const VideohubQuirks& quirks,
        const VideohubIdentity& identity, ClientId reader);

    QByteArray acknowledgement() const { return wire("ACK\n\n"); }
    QByteArray refusal() const { return wire("NAK\n\n"); }

    /// The whole state, as sent to a client that has just connected.
    QByteArray greeting() const;

    /// The answer to a question for one block; absent if this device has no such block.
    std::optional<QByteArray> answer(const QByteArray& header) const;

    /// The state of these destinations or ports, as told after a change.
    QByteArray routes(const QList<int>& destinations) const;
    QByteArray locks(const QList<int>& destinations) const;
    QByteArray labels(Side side, const QList<int>& indexes) const;

private:
    using Line = QByteArray (VideohubWriter::*)(int) const;

    QByteArray tables() const;
    QByteArray table(const char* header, Side side, Line line) const;
    QByteArray change(const char* header, Side side, const QList<int>& indexes, Line line) const;
    QByteArray block(const char* header, const QList<int>& indexes, Line line) const;
    QByteArray device() const;
    QByteArray inputLine(int index) const;
    QByteArray outputLine(int index) const;
    QByteArray lockLine(int destination) const;
    QByteArray routeLine(int destination) const;
    QByteArray inputStatusLine(int index) const;
    QByteArray serialRouteLine(int index) const;
    const char* routingHeader() const;
    /// The bytes with the line ends of this device.
    QByteArray wire(QByteArray text) const;

    const EmulatedMatrix& m_matrix;
    const VideohubQuirks& m_quirks;
    const VideohubIdentity& m_identity;
    const ClientId m_reader;
};

} // namespace corvane::emulator
