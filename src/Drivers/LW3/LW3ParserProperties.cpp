#include "Drivers/LW3/LW3Parser.h"

#include "Drivers/LW3/LW3Value.h"
#include "Foundation/Text.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

/// Calls `handle(position, item)` for each item of a list, from 0. A list that ends in ";" has an empty last
/// one.
template <typename Handle>
void forEachItem(std::string_view list, Handle handle)
{
    std::optional rest(list);
    for (qint64 position = 0; rest && position < maximumPortCount; ++position) {
        const auto [item, after] = text::cut(*rest, ';');
        handle(position, item);
        rest = after;
    }
}

std::optional<qint64> portNumber(std::string_view text)
{
    const auto number = text::decimalInteger(text);
    return number && *number >= 1 ? number : std::nullopt;
}

/// The source that an item of the routing list names, if it names one.
std::optional<qint64> sourceIn(std::string_view item)
{
    const auto name = text::trimBlanks(item);
    if (!name.starts_with('I'))
        return std::nullopt;
    const auto number = portNumber(name.substr(1));
    return number ? std::optional(*number - 1) : std::nullopt;
}

std::optional<PortKind> portKind(char letter)
{
    if (letter == 'I')
        return PortKind::source;
    return letter == 'O' ? std::optional(PortKind::destination) : std::nullopt;
}

/// What the signal is now that a property of it was told; absent for a property of no meaning here.
std::optional<InputSignalStatus> statusAfter(
    InputSignalStatus status, std::string_view property, std::string_view value)
{
    if (property == "SignalPresent") {
        status.present = text::equalsIgnoringAsciiCase(value, "true");
        if (!status.present)
            status.format.reset();
        return status;
    }
    if (property != "ActiveResolution")
        return std::nullopt;
    status.format = value.empty() ? std::nullopt : std::optional(lw3Value::toText(value));
    return status;
}

} // namespace

QByteArray LW3Parser::namePrefix(PortKind kind, qint64 index) const
{
    const auto* const prefix = names(kind).prefixes.find(index);
    return prefix ? *prefix : QByteArray("1");
}

void LW3Parser::handleProperty(std::string_view property)
{
    const auto [path, value] = text::cut(property, '=');
    if (!value)
        return;
    dispatch(path, *value);
    scheduleFinalizeIfReady();
}

void LW3Parser::dispatch(std::string_view path, std::string_view value)
{
    constexpr std::string_view names = "/MEDIA/NAMES/VIDEO.";
    constexpr std::string_view inputs = "/MEDIA/PORTS/VIDEO/I";
    if (path.starts_with(names))
        handleName(path.substr(names.size()), value);
    else if (path.starts_with(inputs))
        handleInputStatus(path.substr(inputs.size()), value);
    else if (path == "/MEDIA/XP/VIDEO.DestinationConnectionStatus")
        handleRoutingList(value);
    else if (path == "/MEDIA/XP/VIDEO.DestinationPortStatus")
        handleLockList(value);
    else if (path == "/.ProductName")
        m_productName = lw3Value::toText(value);
}

void LW3Parser::handleName(std::string_view key, std::string_view value)
{
    const auto number = key.empty() ? std::nullopt : portNumber(key.substr(1));
    if (!number)
        return;
    const auto kind = portKind(key.front());
    if (kind && *number <= mostPorts(*kind))
        learnName(*kind, *number - 1, value);
    scheduleStatusQueries();
}

void LW3Parser::learnName(PortKind kind, qint64 index, std::string_view value)
{
    auto& side = names(kind);
    const auto [prefix, rest] = text::cut(value, ';');
    if (rest && prefix.size() <= text::longestName)
        side.prefixes.set(index, QByteArray(prefix.data(), static_cast<qsizetype>(prefix.size())));
    side.count = std::max(side.count, index + 1);
    auto label = lw3Value::toText(rest.value_or(value));
    const auto* const known = side.labels.find(index);
    if (known && *known == label)
        return;
    side.labels.set(index, label);
    if (m_connectedEmitted)
        yield(driverEvent::LabelChanged{kind, index, std::move(label)});
}

void LW3Parser::handleRoutingList(std::string_view list)
{
    m_routingReceived = true;
    forEachItem(list,
        [this](qint64 destination, std::string_view item) { handleRoute(destination, sourceIn(item)); });
    if (m_resync)
        m_resync->hasRoutes = true;
    endResyncIfComplete();
}

void LW3Parser::handleRoute(qint64 destination, std::optional<qint64> source)
{
    if (destination >= mostPorts(PortKind::destination))
        source.reset();
    if (source == knownSource(destination) && !m_resync)
        return;
    const auto position = static_cast<std::size_t>(destination);
    if (source && position >= m_routing.size())
        m_routing.resize(position + 1);
    if (position < m_routing.size())
        m_routing[position] = source;
    if (m_connectedEmitted)
        yield(driverEvent::RouteChanged{0, destination, source});
}

qint64 LW3Parser::mostPorts(PortKind kind) const
{
    return m_connectedEmitted ? names(kind).count : maximumPortCount;
}

std::optional<qint64> LW3Parser::knownSource(qint64 destination) const
{
    const auto position = static_cast<std::size_t>(destination);
    return position < m_routing.size() ? m_routing[position] : std::nullopt;
}

void LW3Parser::handleLockList(std::string_view list)
{
    forEachItem(list, [this](qint64 destination, std::string_view item) {
        handleLock(destination, item.starts_with('L'));
    });
    if (m_resync)
        m_resync->hasLocks = true;
    endResyncIfComplete();
}

void LW3Parser::handleLock(qint64 destination, bool isLocked)
{
    isLocked = isLocked && destination < mostPorts(PortKind::destination);
    if (isLocked == m_locked.contains(destination) && !m_resync)
        return;
    if (isLocked)
        m_locked.insert(destination);
    else
        m_locked.remove(destination);
    if (m_connectedEmitted)
        yield(driverEvent::LockChanged{destination, isLocked});
}

void LW3Parser::handleInputStatus(std::string_view port, std::string_view value)
{
    constexpr std::string_view separator = "/STATUS.";
    const auto position = port.find(separator);
    if (position == std::string_view::npos)
        return;
    const auto number = portNumber(port.substr(0, position));
    if (!number || *number > mostPorts(PortKind::source))
        return;
    const auto input = *number - 1;
    const auto known = m_inputStatus.constFind(input);
    const bool isKnown = known != m_inputStatus.cend();
    const auto status =
        statusAfter(isKnown ? *known : InputSignalStatus(), port.substr(position + separator.size()), value);
    if (!status || (isKnown && *known == *status))
        return;
    m_inputStatus.insert(input, *status);
    if (m_connectedEmitted)
        yield(driverEvent::InputStatusChanged{input, status});
}

} // namespace corvane
