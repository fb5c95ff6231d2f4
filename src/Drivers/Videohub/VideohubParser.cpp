#include "Drivers/Videohub/VideohubParser.h"

#include "Drivers/Tcp/Ports.h"
#include "Foundation/Text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr char unlocked = 'U';

enum class BlockKind {
    acknowledged,
    refused,
    device,
    inputLabels,
    outputLabels,
    routing,
    locks,
    endOfPrelude,
    other,
};

// Whatever is not listed is of no use here. That holds for "VIDEOHUB OUTPUT ROUTING:" too, the routing block
// of old firmware: routes are taken from the newer one alone.
constexpr std::array<std::pair<std::string_view, BlockKind>, 8> blockKinds{{
    {"VIDEO OUTPUT ROUTING:", BlockKind::routing},
    {"VIDEO OUTPUT LOCKS:", BlockKind::locks},
    {"OUTPUT LABELS:", BlockKind::outputLabels},
    {"INPUT LABELS:", BlockKind::inputLabels},
    {"ACK", BlockKind::acknowledged},
    {"NAK", BlockKind::refused},
    {"VIDEOHUB DEVICE:", BlockKind::device},
    {"END PRELUDE:", BlockKind::endOfPrelude},
}};

BlockKind blockKind(std::string_view header)
{
    const auto name = text::trimBlanks(header);
    const auto* const found = std::ranges::find_if(
        blockKinds, [&](const auto& known) { return text::equalsIgnoringAsciiCase(known.first, name); });
    return found == blockKinds.end() ? BlockKind::other : found->second;
}

struct PortLine {
    qint64 index = 0;
    /// Empty when the line holds the number alone.
    std::string_view value;
};

std::optional<PortLine> portLine(std::string_view line)
{
    const auto [number, value] = text::cut(text::withoutLeading(line, ' '), ' ');
    const auto index = text::decimalInteger(number);
    return index ? std::optional(PortLine{*index, value.value_or(std::string_view())}) : std::nullopt;
}

qint64 believableCount(std::string_view value)
{
    const auto count = text::decimalInteger(value).value_or(0);
    return count >= 0 && count <= maximumPortCount ? count : 0;
}

template <typename Handle>
void forEachLine(std::string_view body, Handle handle)
{
    // No table of a matrix has more lines than there can be ports.
    std::optional rest(body);
    for (qint64 count = 0; rest && count < maximumPortCount; ++count) {
        const auto [line, after] = text::cut(*rest, '\n');
        handle(line);
        rest = after;
    }
}

qint64 lineCount(std::string_view body)
{
    return std::ranges::count(body, '\n') + 1;
}

} // namespace

VideohubParser::VideohubParser(QString deviceName, SerialQueue& queue, RouterEventStream events)
    : ProtocolParser(queue, std::move(events)),
      m_deviceName(std::move(deviceName)),
      m_prelude(std::in_place),
      m_finalizeTimer(addTimer(
          preludeQuiet, [this] { finalizePrelude(); }, firstPictureLimit))
{
}

void VideohubParser::requestResync()
{
    askForMatrix();
    flush();
}

void VideohubParser::read(std::string_view bytes)
{
    readPieces(m_reader, bytes, [this](std::string_view block) { handle(block); });
}

void VideohubParser::askForMatrix()
{
    if (const auto query = resyncQuery())
        say(*query);
}

std::optional<QByteArray> VideohubParser::resyncQuery()
{
    const auto now = queue().now();
    if (m_lastResync && now - *m_lastResync < resyncInterval)
        return std::nullopt;
    m_lastResync = now;
    QByteArray query("VIDEO OUTPUT ROUTING:\n\n");
    if (m_locksSeen)
        query += "VIDEO OUTPUT LOCKS:\n\n";
    return query;
}

bool VideohubParser::exists(PortKind kind, qint64 index) const
{
    return index >= 0 && index < (kind == PortKind::source ? m_sourceCount : m_destinationCount);
}

char VideohubParser::lockLetter(qint64 destination) const
{
    const auto* const letter = m_locks.find(destination);
    return letter ? *letter : unlocked;
}

void VideohubParser::handle(std::string_view block)
{
    const auto [header, lines] = text::cut(text::withoutLeading(block, '\n'), '\n');
    if (header.empty())
        return;
    const auto body = lines.value_or(std::string_view());
    switch (blockKind(header)) {
    case BlockKind::acknowledged:
        return;
    case BlockKind::refused:
        handleRefusal();
        return;
    case BlockKind::endOfPrelude:
        finalizePrelude();
        return;
    case BlockKind::device:
        forEachLine(body, [this](auto line) { handleDevice(line); });
        break;
    case BlockKind::inputLabels:
        forEachLine(body, [this](auto line) { handleLabel(PortKind::source, line); });
        break;
    case BlockKind::outputLabels:
        forEachLine(body, [this](auto line) { handleLabel(PortKind::destination, line); });
        break;
    case BlockKind::routing:
        if (m_prelude)
            m_prelude->routing.reserve(std::min(lineCount(body), m_prelude->outputCount));
        forEachLine(body, [this](auto line) { handleRoute(line); });
        break;
    case BlockKind::locks:
        m_locksSeen = true;
        forEachLine(body, [this](auto line) { handleLock(line); });
        break;
    case BlockKind::other:
        break;
    }
    if (m_prelude && m_prelude->isComplete())
        m_finalizeTimer.restart();
}

void VideohubParser::handleRefusal()
{
    refuse(u"The router refused the last command."_s);
    askForMatrix();
}

void VideohubParser::handleDevice(std::string_view line)
{
    const auto [rawKey, rawValue] = text::cut(text::withoutLeading(line, ':'), ':');
    if (!m_prelude || !rawValue || rawValue->empty())
        return;
    const auto key = text::trimBlanks(rawKey);
    const auto value = text::trimBlanks(*rawValue);
    const auto isKey = [&](std::string_view name) { return text::equalsIgnoringAsciiCase(key, name); };
    if (isKey("model name"))
        m_prelude->model = text::fromDevice(value);
    else if (isKey("friendly name"))
        m_prelude->friendlyName = text::fromDevice(value);
    else if (isKey("video inputs"))
        m_prelude->inputCount = believableCount(value);
    else if (isKey("video outputs"))
        m_prelude->outputCount = believableCount(value);
}

void VideohubParser::handleLabel(PortKind kind, std::string_view line)
{
    const auto port = portLine(line);
    if (!port || !exists(kind, port->index))
        return;
    auto label = text::fromDevice(port->value);
    if (!m_prelude)
        yield(driverEvent::LabelChanged{kind, port->index, std::move(label)});
    else if (kind == PortKind::source)
        m_prelude->inputLabels.set(port->index, std::move(label));
    else
        m_prelude->outputLabels.set(port->index, std::move(label));
}

void VideohubParser::handleRoute(std::string_view line)
{
    const auto port = portLine(line);
    if (!port || !exists(PortKind::destination, port->index))
        return;
    const auto source = text::decimalInteger(port->value);
    if (!source)
        return;
    if (m_prelude)
        m_prelude->routing.insert(port->index, *source);
    else
        yield(driverEvent::RouteChanged{0, port->index, source});
}

void VideohubParser::handleLock(std::string_view line)
{
    const auto port = portLine(line);
    if (!port || !exists(PortKind::destination, port->index))
        return;
    const auto letter = port->value.empty() ? unlocked : port->value.front();
    m_locks.set(port->index, letter);
    if (!m_prelude)
        yield(driverEvent::LockChanged{port->index, letter != unlocked});
}

void VideohubParser::finalizePrelude()
{
    if (!m_prelude || !m_prelude->isComplete())
        return;
    m_finalizeTimer.cancel();
    m_sourceCount = m_prelude->inputCount;
    m_destinationCount = m_prelude->outputCount;
    m_prelude->routing.removeIf(
        [this](LevelRouting::iterator route) { return route.key() >= m_destinationCount; });
    m_locks.keepBelow(m_destinationCount);
    auto state = completeState(std::move(*m_prelude));
    m_prelude.reset();
    yield(driverEvent::Connected{std::move(state)});
}

RouterState VideohubParser::completeState(VideohubPrelude prelude) const
{
    RouterState state;
    state.deviceName = prelude.friendlyName.isEmpty() ? m_deviceName : prelude.friendlyName;
    state.model = prelude.model.isEmpty() ? u"Blackmagic Videohub"_s : prelude.model;
    state.vendor = RouterVendor::blackmagicVideohub;
    state.sources = portList(PortKind::source, prelude.inputCount, std::move(prelude.inputLabels));
    state.destinations =
        portList(PortKind::destination, prelude.outputCount, std::move(prelude.outputLabels));
    state.levels = onlyVideoLevel();
    state.routing.insert(0, prelude.routing);
    m_locks.forEach([&](qint64 destination, char letter) {
        if (letter != unlocked)
            state.lockedDestinations.insert(destination);
    });
    return state;
}

} // namespace corvane
