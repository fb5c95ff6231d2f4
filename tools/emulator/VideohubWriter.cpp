#include "emulator/VideohubWriter.h"

#include <numeric>

using namespace Qt::StringLiterals;

namespace corvane::emulator {

namespace {

QByteArray numberedLine(int index, const QByteArray& text)
{
    return QByteArray::number(index) + ' ' + text + '\n';
}

QByteArray property(const char* key, const QString& value)
{
    return value.isEmpty() ? QByteArray() : QByteArray(key) + ": " + value.toUtf8() + '\n';
}

QByteArray property(const char* key, int value)
{
    return property(key, QString::number(value));
}

QList<int> firstIndexes(int count)
{
    QList<int> indexes(count);
    std::iota(indexes.begin(), indexes.end(), 0);
    return indexes;
}

constexpr auto configuration = "CONFIGURATION:\nTake Mode: false\n\n";
constexpr auto endPrelude = "END PRELUDE:\n\n";

constexpr auto network = "NETWORK:\n"
                         "Interface Count: 1\n"
                         "Default Interface: 0\n\n"
                         "NETWORK INTERFACE 0:\n"
                         "Name: Ethernet Adapter\n"
                         "Dynamic IP: false\n"
                         "Current Addresses: 127.0.0.1/255.0.0.0\n\n";

// The last one is made up, as next year's firmware is from here: its lines look like routes and locks.
constexpr auto alarms = "ALARM STATUS:\n"
                        "Power Supply 1: ok\n"
                        "Fan 2: needs_update\n\n"
                        "TAKE MODE:\n0 false\n1 true\n\n"
                        "QUANTUM OUTPUT ROUTING:\n0 1\n1 0\n0 L\n\n";

} // namespace

VideohubWriter::VideohubWriter(const EmulatedMatrix& matrix, const VideohubQuirks& quirks,
    const VideohubIdentity& identity, ClientId reader)
    : m_matrix(matrix), m_quirks(quirks), m_identity(identity), m_reader(reader)
{
}

QByteArray VideohubWriter::greeting() const
{
    QByteArray text =
        "PROTOCOL PREAMBLE:\n" + property("Version", m_identity.protocolVersion) + '\n' + device();
    if (m_quirks.extraBlocks)
        text += network;
    text += tables();
    if (m_quirks.extraBlocks)
        text += alarms;
    if (!m_quirks.omitConfiguration)
        text += configuration;
    if (!m_quirks.omitEndPrelude)
        text += endPrelude;
    return wire(text);
}

QByteArray VideohubWriter::tables() const
{
    QByteArray text = table(videohub::inputLabelsHeader, Side::Source, &VideohubWriter::inputLine);
    if (m_quirks.extraBlocks)
        text += table("VIDEO INPUT STATUS:", Side::Source, &VideohubWriter::inputStatusLine);
    text += table(videohub::outputLabelsHeader, Side::Destination, &VideohubWriter::outputLine);
    if (!m_quirks.omitLocks)
        text += table(videohub::locksHeader, Side::Destination, &VideohubWriter::lockLine);
    if (m_quirks.extraBlocks)
        text += table("SERIAL PORT ROUTING:", Side::Destination, &VideohubWriter::serialRouteLine);
    return text + table(routingHeader(), Side::Destination, &VideohubWriter::routeLine);
}

std::optional<QByteArray> VideohubWriter::answer(const QByteArray& header) const
{
    if (header == videohub::deviceHeader)
        return wire(device());
    if (header == videohub::inputLabelsHeader)
        return wire(table(videohub::inputLabelsHeader, Side::Source, &VideohubWriter::inputLine));
    if (header == videohub::outputLabelsHeader)
        return wire(table(videohub::outputLabelsHeader, Side::Destination, &VideohubWriter::outputLine));
    if (header == videohub::locksHeader && !m_quirks.omitLocks)
        return wire(table(videohub::locksHeader, Side::Destination, &VideohubWriter::lockLine));
    if (header == videohub::routingHeader || header == routingHeader())
        return wire(table(routingHeader(), Side::Destination, &VideohubWriter::routeLine));
    if (header == "CONFIGURATION:" && !m_quirks.omitConfiguration)
        return wire(configuration);
    if (header == "PING:")
        return QByteArray();
    return std::nullopt;
}

QByteArray VideohubWriter::routes(const QList<int>& destinations) const
{
    return change(routingHeader(), Side::Destination, destinations, &VideohubWriter::routeLine);
}

QByteArray VideohubWriter::locks(const QList<int>& destinations) const
{
    if (m_quirks.omitLocks)
        return {};
    return change(videohub::locksHeader, Side::Destination, destinations, &VideohubWriter::lockLine);
}

QByteArray VideohubWriter::labels(Side side, const QList<int>& indexes) const
{
    return side == Side::Source
        ? change(videohub::inputLabelsHeader, side, indexes, &VideohubWriter::inputLine)
        : change(videohub::outputLabelsHeader, side, indexes, &VideohubWriter::outputLine);
}

QByteArray VideohubWriter::table(const char* header, Side side, Line line) const
{
    return block(header, firstIndexes(m_matrix.count(side)), line);
}

QByteArray VideohubWriter::change(const char* header, Side side, const QList<int>& indexes, Line line) const
{
    return wire(m_quirks.tellWholeTables ? table(header, side, line) : block(header, indexes, line));
}

QByteArray VideohubWriter::block(const char* header, const QList<int>& indexes, Line line) const
{
    QByteArray text = header + QByteArray("\n");
    for (const int index : indexes)
        text += (this->*line)(index);
    return text + '\n';
}

QByteArray VideohubWriter::device() const
{
    const int inputs = m_matrix.count(Side::Source);
    const int outputs = m_matrix.count(Side::Destination);
    const QString model = m_identity.modelName.isEmpty()
        ? u"Blackmagic Smart Videohub %1 x %2"_s.arg(inputs).arg(outputs)
        : m_identity.modelName;
    return videohub::deviceHeader + QByteArray("\n") + property("Device present", u"true"_s)
        + property("Model name", model) + property("Friendly name", m_identity.friendlyName)
        + property("Unique ID", u"7C2E0D0C0A11"_s) + property("Video inputs", inputs)
        + property("Video processing units", 0) + property("Video outputs", outputs)
        + property("Video monitoring outputs", 0) + property("Serial ports", 0) + '\n';
}

QByteArray VideohubWriter::inputLine(int index) const
{
    return numberedLine(index, m_matrix.label(Side::Source, index).toUtf8());
}

QByteArray VideohubWriter::outputLine(int index) const
{
    return numberedLine(index, m_matrix.label(Side::Destination, index).toUtf8());
}

QByteArray VideohubWriter::lockLine(int destination) const
{
    const auto owner = m_matrix.lockOwner(destination);
    if (!owner)
        return numberedLine(destination, "U");
    const bool looksOwn = owner == m_reader && !m_quirks.ownLocksLookForeign;
    return numberedLine(destination, looksOwn ? "O" : "L");
}

QByteArray VideohubWriter::routeLine(int destination) const
{
    return numberedLine(destination, QByteArray::number(m_matrix.source(0, destination)));
}

QByteArray VideohubWriter::inputStatusLine(int index) const
{
    return numberedLine(index, index % 2 == 0 ? "BNC" : "None");
}

QByteArray VideohubWriter::serialRouteLine(int index) const
{
    return numberedLine(index, QByteArray::number(m_matrix.count(Side::Destination) - 1 - index));
}

const char* VideohubWriter::routingHeader() const
{
    return m_quirks.olderRoutingHeader ? videohub::olderRoutingHeader : videohub::routingHeader;
}

QByteArray VideohubWriter::wire(QByteArray text) const
{
    return m_quirks.crLfLineEnds ? text.replace("\n", "\r\n") : text;
}

} // namespace corvane::emulator
