#include "Drivers/QuartzParser.h"

#include "Drivers/Ports.h"
#include "Foundation/Text.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace corvane {

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

/// Takes the text up to the next comma; empty texts are passed over.
std::string_view takePiece(std::string_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(','), text.size()));
    const auto piece = text.substr(0, text.find(','));
    text.remove_prefix(piece.size());
    return piece;
}

struct PortNumbers {
    qint64 destination = 0;
    qint64 source = 0;
};

std::optional<PortNumbers> portNumbers(std::string_view text)
{
    const auto destination = text::decimalInteger(text::trimBlanks(takePiece(text)));
    const auto source = text::decimalInteger(text::trimBlanks(takePiece(text)));
    const bool isPair = destination && source && takePiece(text).empty();
    if (!isPair || *destination < 1 || *source < 1)
        return std::nullopt;
    return PortNumbers{*destination, *source};
}

} // namespace

QuartzParser::QuartzParser(const RouterConnection& connection, SerialQueue& queue, RouterEventStream events)
    : InterrogatingParser(connection,
        {QStringLiteral("Quartz"), RouterVendor::evertzQuartz, maximumPortCount}, queue, std::move(events))
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
    m_reader.feed(bytes, [this](std::string_view line) { handle(text::trimBlanks(line)); });
}

void QuartzParser::interrogate(qint64 destination)
{
    say(".IV" + QByteArray::number(oneBased(destination)) + '\r');
}

void QuartzParser::handle(std::string_view line)
{
    if (line.starts_with('?'))
        handleRefusal();
    else if (line.starts_with(".A") || line.starts_with(".U"))
        handleReport(line.substr(2));
}

void QuartzParser::handleRefusal()
{
    matrix().refuse(QStringLiteral("The router refused the command."));
    if (m_pendingConnects.empty())
        return;
    interrogate(m_pendingConnects.front());
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
    const bool isKnown =
        matrix().report({.level = 0, .destination = destination, .source = ports->source - 1});
    if (isKnown && !m_pendingConnects.empty() && m_pendingConnects.front() == destination)
        m_pendingConnects.pop_front();
}

} // namespace corvane
