#pragma once

#include "emulator/EmulatedMatrix.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QList>

#include <optional>

namespace corvane::emulator {

/// How routers differ that speak this protocol. The simplest of them has none of it.
struct SWP08Quirks {
    /// What a question for one crosspoint is answered with.
    enum class Form { Tally, Connected, ByteDump, WordDump };
    Form answerForm = Form::Tally;
    /// The acknowledgement comes behind what it acknowledges.
    bool acknowledgeLast = false;
    /// Questions that came in one packet are answered in one packet, in dumps as few groups.
    bool answerTogether = false;
    /// Of answers that go out together the highest destination comes first.
    bool highestFirst = false;
    /// Destinations that show nothing are not reported.
    bool omitUnrouted = false;
    /// How many of the coming messages carry a wrong checksum. A message that is refused is repeated.
    int badChecksums = 0;
    /// Every answer brings messages along that nobody asked for.
    bool extraMessages = false;
    /// Every answer brings along a crosspoint far beyond the size of most routers.
    bool phantomPorts = false;
    /// Destinations from this one on are asked for, taken and told of in extended messages alone, as are
    /// sources beyond 1023. Where absent, the router knows no extended messages.
    std::optional<int> extendedFrom = std::nullopt;
};

namespace swp08 {

/// The first byte of a message.
enum Number : char {
    interrogate = 0x01,
    connect = 0x02,
    tally = 0x03,
    connected = 0x04,
    tallyDumpRequest = 0x15,
    byteTallyDump = 0x16,
    wordTallyDump = 0x17,
    extendedInterrogate = static_cast<char>(0x81),
    extendedConnect = static_cast<char>(0x82),
    extendedTally = static_cast<char>(0x83),
    extendedConnected = static_cast<char>(0x84),
};

/// The same message in its extended form; only those that have one.
constexpr Number extended(Number number)
{
    return static_cast<Number>(static_cast<char>(number | 0x80));
}

/// The source of a destination that shows nothing.
inline constexpr int unrouted = 1023;
inline constexpr int extendedUnrouted = 0xffff;

} // namespace swp08

/// A destination on one level; both count from 0.
struct SWP08Place {
    int level = 0;
    int destination = 0;
    /// Whether it was asked for in the extended form, and is told in it.
    bool isExtended = false;
};

/// Puts crosspoints into payloads of messages. Refers to what it is made with.
class SWP08Writer {
public:
    SWP08Writer(const EmulatedMatrix& matrix, const SWP08Quirks& quirks) : m_matrix(matrix), m_quirks(quirks)
    {
    }

    /// One tally or connected message, for destinations and sources up to 1023, or its extended form for
    /// those that this router speaks of in no other.
    QByteArray crosspoint(swp08::Number number, const SWP08Place& place) const;

    /// The answer to questions for these places, in the form and order of this router.
    QByteArrayList answers(const QList<SWP08Place>& places) const;

    /// All of a level, as byte dumps where the numbers fit and this router knows them.
    QByteArrayList dump(int level) const;

    /// Messages that are no answer to anything.
    QByteArrayList unasked() const;

private:
    QByteArray extendedCrosspoint(swp08::Number number, const SWP08Place& place) const;
    bool isToldExtended(const SWP08Place& place) const;
    QByteArrayList dumps(const QList<SWP08Place>& places) const;
    QByteArray group(const QList<SWP08Place>& run) const;
    bool fitsBytes(const QList<SWP08Place>& run) const;
    int source(const SWP08Place& place) const;

    const EmulatedMatrix& m_matrix;
    const SWP08Quirks& m_quirks;
};

} // namespace corvane::emulator
