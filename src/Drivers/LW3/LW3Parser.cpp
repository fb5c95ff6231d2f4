#include "Drivers/LW3/LW3Parser.h"

#include "Drivers/Tcp/Ports.h"
#include "Foundation/Text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr auto* askForMatrix = "GET /MEDIA/XP/VIDEO.*";

/// What begins a line that tells of a property: a read-only one, a writable one, a change.
constexpr std::array<std::string_view, 3> propertyMarks{"CHG ", "pr ", "pw "};
/// What begins a line that tells why a command failed.
constexpr std::array<std::string_view, 3> errorMarks{"pE ", "mE ", "mF "};

template <typename Marks>
std::string_view markOf(std::string_view line, const Marks& marks)
{
    const auto* const found =
        std::ranges::find_if(marks, [&](std::string_view mark) { return line.starts_with(mark); });
    return found == marks.end() ? std::string_view() : *found;
}

QString kindText(LW3Parser::Command command)
{
    switch (command) {
    case LW3Parser::Command::route:
        return u"Route"_s;
    case LW3Parser::Command::lock:
        return u"Lock"_s;
    case LW3Parser::Command::rename:
        break;
    }
    return u"Rename"_s;
}

/// Behind the last "%" that is followed by anything: "E002:Not exists".
std::string_view errorDetail(std::string_view line)
{
    line = line.substr(0, line.find_last_not_of('%') + 1);
    return line.substr(line.rfind('%') + 1);
}

QByteArray statusNode(qint64 input)
{
    return "/MEDIA/PORTS/VIDEO/I" + QByteArray::number(input) + "/STATUS";
}

} // namespace

LW3Parser::LW3Parser(QString deviceName, SerialQueue& queue, RouterEventStream events)
    : ProtocolParser(queue, std::move(events)),
      m_deviceName(std::move(deviceName)),
      m_namesQuietTimer(addTimer(namesQuiet, [this] { issueStatusQueries(); })),
      m_finalizeTimer(addTimer(
          stateQuiet, [this] { finalize(); }, firstPictureLimit))
{
}

void LW3Parser::greet()
{
    ask("GET /.ProductName");
    ask("GET /MEDIA/NAMES/VIDEO.*");
    ask(askForMatrix);
}

void LW3Parser::read(std::string_view bytes)
{
    readPieces(m_reader, bytes, [this](std::string_view line) { handle(line); });
}

QByteArray LW3Parser::registerCommand(Command command)
{
    ++m_signatureCounter;
    auto signature = QByteArray::number(m_signatureCounter, 16).toUpper().rightJustified(4, '0');
    m_pendingCommands.insert(signature, command);
    return signature;
}

void LW3Parser::resyncFromSendFailure()
{
    startResync();
    flush();
}

void LW3Parser::handle(std::string_view line)
{
    if (const auto mark = markOf(line, propertyMarks); !mark.empty())
        handleProperty(line.substr(mark.size()));
    else if (line.starts_with('{'))
        m_currentBlock.emplace(line.data() + 1, static_cast<qsizetype>(line.size() - 1));
    else if (line == "}")
        endBlock();
    else if (!markOf(line, errorMarks).empty())
        handleError(line);
}

void LW3Parser::handleError(std::string_view line)
{
    if (!m_currentBlock)
        return;
    const auto command = m_pendingCommands.constFind(*m_currentBlock);
    if (command == m_pendingCommands.cend())
        return;
    refuse(u"%1 refused: %2"_s.arg(kindText(*command), text::fromDevice(errorDetail(line))));
    startResync();
}

void LW3Parser::endBlock()
{
    if (const auto signature = std::exchange(m_currentBlock, std::nullopt))
        m_pendingCommands.remove(*signature);
    scheduleFinalizeIfReady();
}

void LW3Parser::scheduleStatusQueries()
{
    if (!m_statusQueriesIssued && hasNames())
        m_namesQuietTimer.restart();
}

void LW3Parser::issueStatusQueries()
{
    if (std::exchange(m_statusQueriesIssued, true))
        return;
    ask("OPEN /MEDIA/XP/VIDEO");
    ask("OPEN /MEDIA/NAMES/VIDEO");
    for (qint64 input = 1; input <= m_inputs.count; ++input) {
        const auto node = statusNode(input);
        ask("GET " + node + ".SignalPresent");
        ask("GET " + node + ".ActiveResolution");
        ask("OPEN " + node);
    }
}

void LW3Parser::scheduleFinalizeIfReady()
{
    if (!m_connectedEmitted && m_routingReceived && hasNames())
        m_finalizeTimer.restart();
}

void LW3Parser::finalize()
{
    if (std::exchange(m_connectedEmitted, true))
        return;
    forgetPortsBeyond();
    yield(driverEvent::Connected{completeState()});
}

void LW3Parser::forgetPortsBeyond()
{
    if (m_routing.size() > static_cast<std::size_t>(m_outputs.count))
        m_routing.resize(static_cast<std::size_t>(m_outputs.count));
    m_locked.removeIf([this](qint64 destination) { return destination >= m_outputs.count; });
    m_inputStatus.removeIf(
        [this](QHash<qint64, InputSignalStatus>::iterator input) { return input.key() >= m_inputs.count; });
}

RouterState LW3Parser::completeState() const
{
    RouterState state;
    state.deviceName = m_deviceName;
    state.model = m_productName.isEmpty() ? u"Lightware MX2"_s : m_productName;
    state.vendor = RouterVendor::lightware;
    state.sources = portList(PortKind::source, m_inputs.count, m_inputs.labels);
    state.destinations = portList(PortKind::destination, m_outputs.count, m_outputs.labels);
    state.levels = onlyVideoLevel();
    auto& routing = state.routing[0];
    routing.reserve(static_cast<qsizetype>(m_routing.size()));
    for (std::size_t destination = 0; destination < m_routing.size(); ++destination) {
        if (const auto source = m_routing[destination])
            routing.insert(static_cast<qint64>(destination), *source);
    }
    state.lockedDestinations = m_locked;
    state.inputStatus = m_inputStatus;
    return state;
}

void LW3Parser::startResync()
{
    if (!m_connectedEmitted)
        return;
    m_resync.emplace();
    ask(askForMatrix);
}

void LW3Parser::endResyncIfComplete()
{
    if (m_resync && m_resync->hasRoutes && m_resync->hasLocks)
        m_resync.reset();
}

} // namespace corvane
