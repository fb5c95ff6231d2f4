#include "emulator/SWP08Session.h"

#include "emulator/SWP08Emulator.h"

#include <limits>
#include <utility>

namespace corvane::emulator {

namespace {

// The protocol lets a sender try again five times.
constexpr int mostRepeats = 5;

// A client that acknowledges nothing must not fill our memory.
constexpr std::size_t mostUnanswered = 100'000;

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
    auto request = readSwp08Request(payload);
    if (request && request->isExtended && !m_router.quirks().extendedFrom)
        request.reset();
    const bool isQuestion = request && request->kind == SWP08Request::Kind::Question;
    if (!isQuestion || !m_router.quirks().answerTogether)
        answerQuestions();
    if (isQuestion)
        ask(*request);
    else if (request)
        connectRoute(*request);
    else if (payload[0] == swp08::tallyDumpRequest && payload.size() == 2)
        dump(payload);
    else
        m_connection.send(swp08::acknowledgement);
}

void SWP08Session::ask(const SWP08Request& question)
{
    if (isForUs(question)) {
        m_questions << SWP08Place{question.level, question.destination, question.isExtended};
        return;
    }
    answerQuestions();
    m_connection.send(swp08::refusal);
}

void SWP08Session::connectRoute(const SWP08Request& take)
{
    const Crosspoint route{take.level, take.destination, take.source};
    const auto& matrix = m_router.matrix();
    const bool isPossible = isForUs(take) && matrix.has(Side::Source, route.source)
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
    const int matrixAndLevel = static_cast<quint8>(payload[1]);
    // Matrix 0 alone, in the upper four bits, has levels here.
    if (m_router.matrix().hasLevel(matrixAndLevel))
        answerWith(swp08::acknowledgement, m_writer.dump(matrixAndLevel));
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

bool SWP08Session::isForUs(const SWP08Request& request) const
{
    const auto& matrix = m_router.matrix();
    const int first = m_router.quirks().extendedFrom.value_or(std::numeric_limits<int>::max());
    const bool isRightForm = request.isExtended || request.destination < first;
    return isRightForm && request.matrix == 0 && matrix.hasLevel(request.level)
        && matrix.has(Side::Destination, request.destination);
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
