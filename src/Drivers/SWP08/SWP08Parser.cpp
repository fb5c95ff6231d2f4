#include "Drivers/SWP08/SWP08Parser.h"

#include <algorithm>
#include <array>
#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array acknowledgement{swp08::dle, swp08::ack};
constexpr std::array refusal{swp08::dle, swp08::nak};

/// The first byte of a message.
enum Message : char {
    interrogateMessage = 0x01,
    connectMessage = 0x02,
    tallyMessage = 0x03,
    connectedMessage = 0x04,
};

/// Set in the first byte of a message whose form is the extended one.
constexpr int extendedBit = 0x80;

constexpr char extended(Message message)
{
    return static_cast<char>(message | extendedBit);
}

// A number is a multiple of 128, whose factor shares a byte with the other number's, and the rest.
constexpr qint64 multiple = 128;

// Of an extended number, the high byte counts these.
constexpr qint64 extendedMultiple = 256;

constexpr std::size_t reportSize = 5;
/// The status that may follow tells nothing here.
constexpr std::size_t extendedReportSize = 7;

/// No other report can name a higher source.
constexpr qint64 highestOrdinarySource = 1023;
/// What an extended report tells of a destination that shows nothing.
constexpr qint64 noExtendedSource = 0xFFFF;

char multiplier(qint64 destination, qint64 source)
{
    return static_cast<char>((source / multiple) | ((destination / multiple) << 4));
}

char rest(qint64 number)
{
    return static_cast<char>(number % multiple);
}

char extendedMultiplier(qint64 number)
{
    return static_cast<char>(number / extendedMultiple);
}

char extendedRest(qint64 number)
{
    return static_cast<char>(number % extendedMultiple);
}

bool isReport(std::string_view payload)
{
    return payload.size() >= reportSize && (payload[0] == tallyMessage || payload[0] == connectedMessage);
}

bool isExtendedReport(std::string_view payload)
{
    return payload.size() >= extendedReportSize
        && (payload[0] == extended(tallyMessage) || payload[0] == extended(connectedMessage));
}

Route reportedRoute(std::string_view payload)
{
    const auto byte = [&](std::size_t index) { return static_cast<quint8>(payload[index]); };
    // Bit 3 is left out: it tells of the source's health.
    return {.level = byte(1) & 0x0F,
        .destination = (((byte(2) & 0x70) >> 4) * multiple) + byte(3),
        .source = ((byte(2) & 0x07) * multiple) + byte(4)};
}

Route extendedReportedRoute(std::string_view payload)
{
    const auto byte = [&](std::size_t index) { return static_cast<quint8>(payload[index]); };
    return {.level = byte(2),
        .destination = (byte(3) * extendedMultiple) + byte(4),
        .source = (byte(5) * extendedMultiple) + byte(6)};
}

} // namespace

SWP08Parser::SWP08Parser(const RouterConnection& connection, SerialQueue& queue, RouterEventStream events)
    // The protocol does not tell whose router it is: all pass for the vendor that we know best.
    : InterrogatingParser(
        connection, {u"SW-P-08"_s, RouterVendor::rossUltrix, maximumPortCount}, queue, std::move(events)),
      m_forms(static_cast<std::size_t>(destinationCount()))
{
}

QByteArray SWP08Parser::commandFor(const Route& route)
{
    m_pendingCommands.emplace_back(Connect{route.destination});
    return swp08::frame(isExtended(route) ? extendedConnectPayload(route) : connectPayload(route));
}

void SWP08Parser::commandNotSent(qint64 destination)
{
    abortPendingConnect(destination);
    InterrogatingParser::commandNotSent(destination);
}

QByteArray SWP08Parser::connectPayload(const Route& route)
{
    return QByteArray()
        .append(connectMessage)
        .append(static_cast<char>(route.level & 0x0F))
        .append(multiplier(route.destination, route.source))
        .append(rest(route.destination))
        .append(rest(route.source));
}

QByteArray SWP08Parser::extendedConnectPayload(const Route& route)
{
    return QByteArray()
        .append(extended(connectMessage))
        .append('\0')
        .append(static_cast<char>(route.level))
        .append(extendedMultiplier(route.destination))
        .append(extendedRest(route.destination))
        .append(extendedMultiplier(route.source))
        .append(extendedRest(route.source));
}

void SWP08Parser::read(std::string_view bytes)
{
    m_reader.feed(bytes, [this](SWP08Item item, std::string_view body) {
        switch (item) {
        case SWP08Item::body:
            processFrame(body);
            break;
        case SWP08Item::acknowledgement:
            handleAcknowledgement();
            break;
        case SWP08Item::refusal:
            handleRefusal();
            break;
        }
    });
}

void SWP08Parser::interrogate(qint64 destination)
{
    if (form(destination) == Form::extended)
        interrogateExtended(destination);
    else
        ask(QByteArray()
                .append(interrogateMessage)
                .append('\0')
                .append(multiplier(destination, 0))
                .append(rest(destination)));
}

void SWP08Parser::interrogateExtended(qint64 destination)
{
    ask(QByteArray()
            .append(extended(interrogateMessage))
            .append('\0')
            .append('\0')
            .append(extendedMultiplier(destination))
            .append(extendedRest(destination)));
}

void SWP08Parser::ask(const QByteArray& payload)
{
    m_pendingCommands.emplace_back(Interrogate{});
    say(swp08::frame(payload));
}

void SWP08Parser::pictureTaken()
{
    for (qint64 destination = 0; destination < destinationCount(); ++destination) {
        if (form(destination) == Form::none)
            interrogateExtended(destination);
    }
}

void SWP08Parser::processFrame(std::string_view body)
{
    if (!swp08::isSound(body)) {
        say(refusal);
        return;
    }
    say(acknowledgement);
    const auto payload = body.substr(0, body.size() - 2);
    if (isReport(payload))
        handleReport(reportedRoute(payload));
    else if (isExtendedReport(payload))
        handleExtendedReport(extendedReportedRoute(payload));
}

void SWP08Parser::handleReport(const Route& route)
{
    setForm(route.destination, Form::ordinary);
    report(route);
}

void SWP08Parser::handleExtendedReport(const Route& route)
{
    if (form(route.destination) == Form::none)
        setForm(route.destination, Form::extended);
    if (route.source == noExtendedSource) {
        reportNothing(route.level, route.destination);
        return;
    }
    if (report(route) && route.source > highestOrdinarySource)
        m_extendedSources.insert(route.source);
}

SWP08Parser::Form SWP08Parser::form(qint64 destination) const
{
    const auto place = static_cast<std::size_t>(destination);
    return place < m_forms.size() ? m_forms[place] : Form::none;
}

void SWP08Parser::setForm(qint64 destination, Form form)
{
    const auto place = static_cast<std::size_t>(destination);
    if (place < m_forms.size())
        m_forms[place] = form;
}

bool SWP08Parser::isExtended(const Route& route) const
{
    return form(route.destination) == Form::extended || m_extendedSources.contains(route.source);
}

void SWP08Parser::handleAcknowledgement()
{
    if (!m_pendingCommands.empty())
        m_pendingCommands.pop_front();
}

void SWP08Parser::handleRefusal()
{
    if (m_pendingCommands.empty()) {
        refuse(u"The router refused the command (NAK)."_s);
        return;
    }
    const auto refused = m_pendingCommands.front();
    m_pendingCommands.pop_front();
    // A question that was refused is not worth a word.
    if (const auto* const route = std::get_if<Connect>(&refused)) {
        refuse(u"The router refused the route (NAK)."_s);
        reread(route->destination);
    }
}

void SWP08Parser::abortPendingConnect(qint64 destination)
{
    const auto found = std::ranges::find_if(
        m_pendingCommands.rbegin(), m_pendingCommands.rend(), [&](const PendingCommand& pending) {
            const auto* const route = std::get_if<Connect>(&pending);
            return route && route->destination == destination;
        });
    if (found != m_pendingCommands.rend())
        m_pendingCommands.erase(std::next(found).base());
}

} // namespace corvane
