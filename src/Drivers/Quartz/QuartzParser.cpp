#include "Drivers/Quartz/QuartzParser.h"

#include "Drivers/Tcp/Ports.h"
#include "Foundation/Text.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

bool isAsciiLetter(char byte)
{
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

bool isAscii(char byte)
{
    return static_cast<quint8>(byte) < 0x80;
}

/// How many bytes of letters the text begins with.
std::size_t letterRun(std::string_view text)
{
    const auto* const end = std::ranges::find_if_not(text, isAsciiLetter);
    if (end == text.end() || isAscii(*end))
        return static_cast<std::size_t>(end - text.begin());
    const auto decoded = text::fromDevice(text);
    const auto* const letters = std::ranges::find_if_not(decoded, [](QChar sign) { return sign.isLetter(); });
    return static_cast<std::size_t>(QStringView(decoded.cbegin(), letters - decoded.begin()).toUtf8().size());
}

struct PortNumbers {
    qint64 destination = 0;
    /// 0 where the router shows nothing.
    qint64 source = 0;
};

/// Two numbers with a comma between them; further commas mean nothing.
std::optional<PortNumbers> portNumbers(std::string_view text)
{
    const auto [first, others] = text::cut(text::withoutLeading(text, ','), ',');
    const auto [second, rest] = text::cut(text::withoutLeading(others.value_or(""), ','), ',');
    const auto destination = text::decimalInteger(text::trimBlanks(first));
    const auto source = text::decimalInteger(text::trimBlanks(second));
    const bool isPair = destination && source && text::withoutLeading(rest.value_or(""), ',').empty();
    if (!isPair || *destination < 1 || *source < 0)
        return std::nullopt;
    return PortNumbers{*destination, *source};
}

} // namespace

QuartzParser::QuartzParser(const RouterConnection& connection, SerialQueue& queue, RouterEventStream events)
    : InterrogatingParser(
        connection, {u"Quartz"_s, RouterVendor::evertzQuartz, maximumPortCount}, queue, std::move(events))
{
}

QByteArray QuartzParser::commandFor(const Route& route)
{
    m_pendingConnects.push_back(route.destination);
    return ".SV" + QByteArray::number(oneBased(route.destination)) + ','
        + QByteArray::number(oneBased(route.source)) + '\r';
}

void QuartzParser::read(std::string_view bytes)
{
    readPieces(m_reader, bytes, [this](std::string_view line) { handle(text::trimBlanks(line)); });
}

void QuartzParser::interrogate(qint64 destination)
{
    say(".IV" + QByteArray::number(oneBased(destination)) + '\r');
}

void QuartzParser::handle(std::string_view line)
{
    if (line.starts_with('?') || line.starts_with(".E"))
        handleRefusal();
    else if (line.starts_with(".A") || line.starts_with(".U"))
        handleReport(line.substr(2));
}

void QuartzParser::handleRefusal()
{
    refuse(u"The router refused the command."_s);
    if (m_pendingConnects.empty())
        return;
    reread(m_pendingConnects.front());
    m_pendingConnects.pop_front();
}

void QuartzParser::handleReport(std::string_view text)
{
    // Which level it is plays no part, but there must be one.
    const auto letters = letterRun(text);
    if (letters == 0)
        return;
    const auto ports = portNumbers(text.substr(letters));
    if (!ports)
        return;
    const auto destination = ports->destination - 1;
    if (ports->source == 0) {
        handleNothing(destination);
        return;
    }
    const bool isKnown = report({.level = 0, .destination = destination, .source = ports->source - 1});
    if (isKnown && !m_pendingConnects.empty() && m_pendingConnects.front() == destination)
        m_pendingConnects.pop_front();
}

void QuartzParser::handleNothing(qint64 destination)
{
    // Not every router means that no source is routed. But where a take was refused, that source is not.
    if (isBeingReread(destination))
        reportNothing(0, destination);
}

} // namespace corvane
