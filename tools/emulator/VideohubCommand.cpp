#include "emulator/VideohubCommand.h"

#include <functional>

namespace corvane::emulator {

namespace {

struct IndexedText {
    int index = 0;
    QByteArray text;
};

std::optional<int> number(const QByteArray& text)
{
    bool isNumber = false;
    const int value = text.toInt(&isNumber);
    return isNumber ? std::optional(value) : std::nullopt;
}

std::optional<IndexedText> indexedText(const QByteArray& line)
{
    const auto blank = line.indexOf(' ');
    const auto index = number(blank < 0 ? line : line.left(blank));
    if (!index)
        return std::nullopt;
    return IndexedText{*index, blank < 0 ? QByteArray() : line.mid(blank + 1)};
}

/// All lines read by `read`, or nothing if one of them can't be.
template <typename Change>
std::optional<VideohubCommand> readLines(
    const VideohubBlock& block, const std::function<std::optional<Change>(const IndexedText&)>& read)
{
    QList<Change> changes;
    for (const auto& line : block.lines) {
        const auto entry = indexedText(line);
        const auto change = entry ? read(*entry) : std::nullopt;
        if (!change)
            return std::nullopt;
        changes << *change;
    }
    return changes;
}

/// Reads the lines of one block in the light of who sent it.
class LineMeaning {
public:
    LineMeaning(const EmulatedMatrix& matrix, ClientId sender) : m_matrix(matrix), m_sender(sender) { }

    std::optional<Crosspoint> route(const IndexedText& entry) const
    {
        const auto source = number(entry.text);
        if (!source || !m_matrix.has(Side::Source, *source) || !mayChange(entry.index))
            return std::nullopt;
        return Crosspoint{0, entry.index, *source};
    }

    std::optional<LabelChange> label(Side side, const IndexedText& entry) const
    {
        if (!m_matrix.has(side, entry.index))
            return std::nullopt;
        return LabelChange{side, entry.index, QString::fromUtf8(entry.text)};
    }

    std::optional<LockChange> lock(const IndexedText& entry) const
    {
        if (entry.text == "F" && m_matrix.has(Side::Destination, entry.index))
            return LockChange{entry.index, std::nullopt};
        if (!mayChange(entry.index))
            return std::nullopt;
        if (entry.text == "O")
            return LockChange{entry.index, m_sender};
        if (entry.text == "U")
            return LockChange{entry.index, std::nullopt};
        return std::nullopt;
    }

private:
    bool mayChange(int destination) const
    {
        return m_matrix.has(Side::Destination, destination)
            && !m_matrix.isLockedAgainst(m_sender, destination);
    }

    const EmulatedMatrix& m_matrix;
    const ClientId m_sender;
};

} // namespace

std::optional<VideohubCommand> readCommand(
    const VideohubBlock& block, const EmulatedMatrix& matrix, const VideohubQuirks& quirks, ClientId sender)
{
    const LineMeaning meaning(matrix, sender);
    const auto& header = block.header;
    if (header == videohub::routingHeader
        || (quirks.olderRoutingHeader && header == videohub::olderRoutingHeader))
        return readLines<Crosspoint>(block, [&](const auto& entry) { return meaning.route(entry); });
    if (header == videohub::locksHeader && !quirks.omitLocks)
        return readLines<LockChange>(block, [&](const auto& entry) { return meaning.lock(entry); });
    if (header == videohub::inputLabelsHeader)
        return readLines<LabelChange>(
            block, [&](const auto& entry) { return meaning.label(Side::Source, entry); });
    if (header == videohub::outputLabelsHeader)
        return readLines<LabelChange>(
            block, [&](const auto& entry) { return meaning.label(Side::Destination, entry); });
    return std::nullopt;
}

void carryOut(const VideohubCommand& command, EmulatedMatrix& matrix)
{
    if (const auto* routes = std::get_if<QList<Crosspoint>>(&command))
        matrix.setRoutes(*routes);
    else if (const auto* labels = std::get_if<QList<LabelChange>>(&command))
        matrix.setLabels(*labels);
    else if (const auto* locks = std::get_if<QList<LockChange>>(&command))
        matrix.setLocks(*locks);
}

} // namespace corvane::emulator
