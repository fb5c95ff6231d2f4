#include "emulator/SWP08Session.h"

#include "emulator/SWP08Emulator.h"

#include <utility>

namespace corvane::emulator {

namespace {

// The protocol lets a sender try again five times.
constexpr int mostRepeats = 5;

// A client that acknowledges nothing must not fill our memory.
constexpr std::size_t mostUnanswered = 100'000;

int byteAt(const QByteArray& payload, qsizetype position)
{
    return static_cast<quint8>(payload[position]);
}

int level(const QByteArray& payload)
{
    return byteAt(payload, 1) & 0x0f;
}

int destination(const QByteArray& payload)
{
    return ((byteAt(payload, 2) >> 4) & 0x07) << 7 | byteAt(payload, 3);
}

int source(const QByteArray& payload)
{
    return (byteAt(payload, 2) & 0x07) << 7 | byteAt(payload, 4);
}

} // namespace

SWP08Session::SWP08Session(SWP08Emulator& router, EmulatorConnection& connection)
    : m_router(router), m_connection(connection), m_writer(router.matrix(), router.quirks())
{
    const auto* matrix = &router.matrix();
    connect(matrix, &EmulatedMatrix::routesChanged, this, &SWP08Session::tellRoutes);
    connect(matrix, &EmulatedMatrix::replaced, this, &SWP08Session::tellEverything);
    connect(&router, &SWP08Emulator::told, this,
        [this](const QByteArray& payload) { m_connection.send(wire(payload)); });
}

void SWP08Session::received(const QByteArray& bytes)
{
    const auto items = m_reader.feed(bytes);
    for (const auto& item : items)
        handle(item);
    answerQuestions();
}

void SWP08Session::handle(const SWP08Item& item)
{
    switch (item.kind) {
    case SWP08Item::Kind::Message:
        m_router.record(item.payload);
        handleMessage(item.payload);
        break;
    case SWP08Item::Kind::DamagedMessage:
        answerQuestions();
        m_connection.send(swp08::refusal);
        break;
    case SWP08Item::Kind::Acknowledgement:
        m_router.countAcknowledgement();
        if (!m_unanswered.empty())
            m_unanswered.pop_front();
        break;
    case SWP08Item::Kind::Refusal:
        m_router.countRefusal();
        repeatRefused();
        break;
    }
}

void SWP08Session::handleMessage(const QByteArray& payload)
{
    const bool isQuestion = payload[0] == swp08::interrogate && payload.size() == 4;
    if (!isQuestion || !m_router.quirks().answerTogether)
        answerQuestions();
    if (isQuestion)
        ask(payload);
    else if (payload[0] == swp08::connect && payload.size() == 5)
        connectRoute(payload);
    else if (payload[0] == swp08::tallyDumpRequest && payload.size() == 2)
        dump(payload);
    else
        m_connection.send(swp08::acknowledgement);
}

void SWP08Session::ask(const QByteArray& payload)
{
    if (isForUs(payload, destination(payload))) {
        m_questions << SWP08Place{level(payload), destination(payload)};
        return;
    }
    answerQuestions();
    m_connection.send(swp08::refusal);
}

void SWP08Session::connectRoute(const QByteArray& payload)
{
    const Crosspoint route{level(payload), destination(payload), source(payload)};
    const auto& matrix = m_router.matrix();
    const bool isPossible = isForUs(payload, route.destination) && matrix.has(Side::Source, route.source)
        && !matrix.isLockedAgainst(m_connection.id(), route.destination);
    if (m_router.faults().takeRefusal() || !isPossible) {
        m_connection.send(swp08::refusal);
        return;
    }
    const bool acknowledgeLast = m_router.quirks().acknowledgeLast;
    if (!acknowledgeLast)
        m_connection.send(swp08::acknowledgement);
    if (!m_router.faults().acknowledgeOnly)
        carryOut(route);
    if (acknowledgeLast)
        m_connection.send(swp08::acknowledgement);
}

void SWP08Session::carryOut(const Crosspoint& route)
{
    auto& matrix = m_router.matrix();
    if (matrix.source(route.level, route.destination) == route.source)
        tellRoutes({route});
    else
        matrix.setRoutes({route});
}

void SWP08Session::dump(const QByteArray& payload)
{
    if (isForUs(payload, 0))
        answerWith(swp08::acknowledgement, m_writer.dump(level(payload)));
    else
        m_connection.send(swp08::refusal);
}

void SWP08Session::answerQuestions()
{
    if (m_questions.isEmpty())
        return;
    const auto questions = std::exchange(m_questions, {});
    answerWith(
        swp08::acknowledgement.repeated(questions.size()), m_writer.answers(questions) + m_writer.unasked());
}

void SWP08Session::answerWith(const QByteArray& acknowledgements, const QByteArrayList& payloads)
{
    QByteArrayList parts;
    for (const auto& payload : payloads)
        parts << wire(payload);
    if (m_router.quirks().acknowledgeLast)
        parts.append(acknowledgements);
    else
        parts.prepend(acknowledgements);
    if (m_router.quirks().answerTogether)
        parts = {parts.join()};
    for (const auto& part : parts)
        m_connection.send(part);
}

void SWP08Session::tellRoutes(const QList<Crosspoint>& routes)
{
    for (const auto& route : routes)
        m_connection.send(wire(m_writer.crosspoint(swp08::connected, {route.level, route.destination})));
}

void SWP08Session::tellEverything()
{
    const auto& matrix = m_router.matrix();
    for (int i = 0; i < matrix.levelCount(); ++i) {
        for (int j = 0; j < matrix.count(Side::Destination); ++j)
            m_connection.send(wire(m_writer.crosspoint(swp08::connected, {i, j})));
    }
}

void SWP08Session::repeatRefused()
{
    if (m_unanswered.empty())
        return;
    const auto sent = std::move(m_unanswered.front());
    m_unanswered.pop_front();
    if (sent.repeats < mostRepeats)
        m_connection.send(wire(sent.payload, sent.repeats + 1));
}

bool SWP08Session::isForUs(const QByteArray& payload, int wanted) const
{
    const int matrixNumber = byteAt(payload, 1) >> 4;
    return matrixNumber == 0 && m_router.matrix().hasLevel(level(payload))
        && m_router.matrix().has(Side::Destination, wanted);
}

QByteArray SWP08Session::wire(const QByteArray& payload, int repeats)
{
    if (m_unanswered.size() < mostUnanswered)
        m_unanswered.push_back({payload, repeats});
    auto& badChecksums = m_router.quirks().badChecksums;
    if (badChecksums <= 0)
        return swp08::frame(payload);
    --badChecksums;
    return swp08::damagedFrame(payload);
}

} // namespace corvane::emulator
