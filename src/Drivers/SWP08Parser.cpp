#include "Drivers/SWP08Parser.h"

#include <algorithm>
#include <array>
#include <utility>

namespace corvane {

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

// A number is a multiple of 128, whose factor shares a byte with the other number's, and the rest.
constexpr qint64 multiple = 128;

constexpr std::size_t reportSize = 5;

char multiplier(qint64 destination, qint64 source)
{
    return static_cast<char>((source / multiple) | ((destination / multiple) << 4));
}

char rest(qint64 number)
{
    return static_cast<char>(number % multiple);
}

bool isReport(std::string_view payload)
{
    return payload.size() >= reportSize && (payload[0] == tallyMessage || payload[0] == connectedMessage);
}

Route reportedRoute(std::string_view payload)
{
    const auto byte = [&](std::size_t index) { return static_cast<quint8>(payload[index]); };
    // Bit 3 is left out: it tells of the source's health.
    return {.level = byte(1) & 0x0F,
        .destination = (((byte(2) & 0x70) >> 4) * multiple) + byte(3),
        .source = ((byte(2) & 0x07) * multiple) + byte(4)};
}

} // namespace

SWP08Parser::SWP08Parser(const RouterConnection& connection, SerialQueue& queue, RouterEventStream events)
    // The protocol does not tell whose router it is: all pass for the vendor that we know best.
    : InterrogatingParser(connection, {QStringLiteral("SW-P-08"), RouterVendor::rossUltrix, maximumPortCount},
        queue, std::move(events))
{
}

QByteArray SWP08Parser::commandFor(const Route& route)
{
    m_pendingCommands.emplace_back(Connect{route.destination});
    return swp08::frame(connectPayload(route));
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
    m_pendingCommands.emplace_back(Interrogate{});
    say(swp08::frame(QByteArray()
                         .append(interrogateMessage)
                         .append('\0')
                         .append(multiplier(destination, 0))
                         .append(rest(destination))));
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
        matrix().report(reportedRoute(payload));
}

void SWP08Parser::handleAcknowledgement()
{
    if (!m_pendingCommands.empty())
        m_pendingCommands.pop_front();
}

void SWP08Parser::handleRefusal()
{
    if (m_pendingCommands.empty()) {
        matrix().refuse(QStringLiteral("The router refused the command (NAK)."));
        return;
    }
    const auto refused = m_pendingCommands.front();
    m_pendingCommands.pop_front();
    // A question that was refused is not worth a word.
    if (const auto* const route = std::get_if<Connect>(&refused)) {
        matrix().refuse(QStringLiteral("The router refused the route (NAK)."));
        interrogate(route->destination);
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
