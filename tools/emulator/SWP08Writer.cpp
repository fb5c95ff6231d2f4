#include "emulator/SWP08Writer.h"

#include <algorithm>

namespace corvane::emulator {

namespace {

// Five bytes of heading and two for each source stay within the 134 that real routers send.
constexpr qsizetype largestGroup = 64;

// What a byte dump shows for a destination without a source.
constexpr char unroutedByte = '\xff';

char low7(int number)
{
    return static_cast<char>(number & 0x7f);
}

char low8(int number)
{
    return static_cast<char>(number & 0xff);
}

/// The three upper bits of both numbers in one byte: 0, destination, 0, source.
char multiplier(int destination, int source)
{
    return static_cast<char>(((destination >> 7) & 0x07) << 4 | ((source >> 7) & 0x07));
}

bool follows(const SWP08Place& next, const SWP08Place& last)
{
    return next.level == last.level && next.destination == last.destination + 1;
}

/// Cuts into groups of neighbours.
QList<QList<SWP08Place>> runs(const QList<SWP08Place>& places)
{
    QList<QList<SWP08Place>> result;
    for (const auto& place : places) {
        const bool continues =
            !result.isEmpty() && result.last().size() < largestGroup && follows(place, result.last().last());
        if (!continues)
            result << QList<SWP08Place>();
        result.last() << place;
    }
    return result;
}

} // namespace

QByteArray SWP08Writer::crosspoint(swp08::Number number, const SWP08Place& place) const
{
    if (isToldExtended(place))
        return extendedCrosspoint(number, place);
    const int destination = place.destination;
    const int from = source(place);
    return QByteArray()
        .append(number)
        .append(low8(place.level))
        .append(multiplier(destination, from))
        .append(low7(destination))
        .append(low7(from));
}

QByteArray SWP08Writer::extendedCrosspoint(swp08::Number number, const SWP08Place& place) const
{
    const int routed = m_matrix.source(place.level, place.destination);
    const int from = routed == noSource ? swp08::extendedUnrouted : routed;
    return QByteArray()
        .append(swp08::extended(number))
        .append('\0')
        .append(low8(place.level))
        .append(low8(place.destination >> 8))
        .append(low8(place.destination))
        .append(low8(from >> 8))
        .append(low8(from))
        .append('\0');
}

bool SWP08Writer::isToldExtended(const SWP08Place& place) const
{
    const auto first = m_quirks.extendedFrom;
    return first && (place.isExtended || place.destination >= *first || source(place) > swp08::unrouted);
}

QByteArrayList SWP08Writer::answers(const QList<SWP08Place>& places) const
{
    auto shown = places;
    if (m_quirks.omitUnrouted)
        shown.removeIf([this](const auto& place) { return source(place) == swp08::unrouted; });

    QByteArrayList payloads;
    if (m_quirks.answerForm == SWP08Quirks::Form::Tally) {
        for (const auto& place : shown)
            payloads << crosspoint(swp08::tally, place);
    } else if (m_quirks.answerForm == SWP08Quirks::Form::Connected) {
        for (const auto& place : shown)
            payloads << crosspoint(swp08::connected, place);
    } else {
        payloads = dumps(shown);
    }
    if (m_quirks.highestFirst)
        std::ranges::reverse(payloads);
    return payloads;
}

QByteArrayList SWP08Writer::dump(int level) const
{
    QList<SWP08Place> places;
    for (int destination = 0; destination < m_matrix.count(Side::Destination); ++destination) {
        const SWP08Place place{level, destination};
        if (!m_quirks.omitUnrouted || source(place) != swp08::unrouted)
            places << place;
    }
    return dumps(places);
}

QByteArrayList SWP08Writer::unasked() const
{
    QByteArrayList payloads;
    if (m_quirks.phantomPorts)
        // Destination and source 1000.
        payloads << QByteArrayLiteral("\x03\x00\x77\x68\x68");
    if (m_quirks.extraMessages)
        // Are you the active controller; destination 3 is not protected; salvo 16 was fired; and what the
        // first destination shows, in the extended form.
        payloads << QByteArrayLiteral("\x08") << QByteArrayLiteral("\x0b\x00\x00\x00\x03\x05")
                 << QByteArrayLiteral("\x7b\x00\x10") << extendedCrosspoint(swp08::tally, {0, 0});
    return payloads;
}

QByteArrayList SWP08Writer::dumps(const QList<SWP08Place>& places) const
{
    QByteArrayList payloads;
    for (const auto& run : runs(places))
        payloads << group(run);
    return payloads;
}

QByteArray SWP08Writer::group(const QList<SWP08Place>& run) const
{
    const bool inBytes = m_quirks.answerForm != SWP08Quirks::Form::WordDump && fitsBytes(run);
    const int first = run.first().destination;
    QByteArray payload;
    payload.append(inBytes ? swp08::byteTallyDump : swp08::wordTallyDump)
        .append(low8(run.first().level))
        .append(low8(static_cast<int>(run.size())));
    if (!inBytes)
        payload.append(low8(first >> 8));
    payload.append(low8(first));
    for (const auto& place : run) {
        const int from = source(place);
        if (inBytes)
            payload.append(from == swp08::unrouted ? unroutedByte : low8(from));
        else
            payload.append(low8(from >> 8)).append(low8(from));
    }
    return payload;
}

bool SWP08Writer::fitsBytes(const QList<SWP08Place>& run) const
{
    return run.last().destination < 0xff && m_matrix.count(Side::Source) <= 0xff;
}

int SWP08Writer::source(const SWP08Place& place) const
{
    const int from = m_matrix.source(place.level, place.destination);
    return from == noSource ? swp08::unrouted : from;
}

} // namespace corvane::emulator
