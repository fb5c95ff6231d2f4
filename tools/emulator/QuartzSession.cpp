#include "emulator/QuartzSession.h"

#include "emulator/QuartzEmulator.h"

#include <algorithm>
#include <utility>

namespace corvane::emulator {

namespace {

QByteArray lineEnd(QuartzQuirks::LineEnd kind)
{
    switch (kind) {
    case QuartzQuirks::LineEnd::Cr:
        return "\r";
    case QuartzQuirks::LineEnd::Lf:
        return "\n";
    case QuartzQuirks::LineEnd::CrLf:
        return "\r\n";
    }
    return {};
}

QList<Crosspoint> routes(const QuartzCommand& command)
{
    QList<Crosspoint> result;
    for (const int level : command.levels)
        result << Crosspoint{level, command.destination, command.source};
    return result;
}

} // namespace

QuartzSession::QuartzSession(QuartzEmulator& router, EmulatorConnection& connection)
    : m_router(router), m_connection(connection)
{
    connect(&router.matrix(), &EmulatedMatrix::routesChanged, this, &QuartzSession::tellRoutes);
    connect(&router, &QuartzEmulator::poweredUp, this, [this] { say(".P"); });
    connect(&router, &QuartzEmulator::heard, this, [this](const QByteArray& line, ClientId from) {
        if (from != m_connection.id())
            say(line);
    });
}

void QuartzSession::received(const QByteArray& bytes)
{
    const auto lines = m_reader.feed(bytes);
    for (const auto& line : lines)
        handle(line);
}

void QuartzSession::handle(const QByteArray& line)
{
    m_router.record(line);
    if (m_router.quirks().echoOthers)
        emit m_router.heard(line, m_connection.id());
    const auto command = readQuartzCommand(line, m_router.matrix());
    if (!command || !command->exists) {
        refuse(command);
        return;
    }
    if (m_router.quirks().interposeUpdates)
        interpose(command->destination);
    if (command->verb == 'I')
        answer(*command);
    else
        take(*command);
}

void QuartzSession::refuse(const std::optional<QuartzCommand>& command)
{
    const bool isQuestion = command && command->verb == 'I';
    if (!isQuestion || !m_router.quirks().ignoreAbsentPorts)
        say(m_router.quirks().refusal);
}

void QuartzSession::answer(const QuartzCommand& question)
{
    for (const int level : question.levels) {
        const int source = m_router.matrix().source(level, question.destination);
        report('A', QByteArray(1, quartz::levelLetter(level)), {level, question.destination, source});
    }
}

void QuartzSession::take(const QuartzCommand& command)
{
    auto& matrix = m_router.matrix();
    const bool isLocked = matrix.isLockedAgainst(m_connection.id(), command.destination);
    if (m_router.faults().takeRefusal() || isLocked) {
        say(m_router.quirks().refusal);
        return;
    }
    const bool isRepeat = isAlready(command);
    if (isRepeat && m_router.quirks().ignoreRepeats)
        return;
    if (m_router.quirks().acknowledgeLines || m_router.faults().acknowledgeOnly)
        say(".A");
    if (m_router.faults().acknowledgeOnly)
        return;
    if (isRepeat)
        tellRoutes(routes(command));
    else
        matrix.setRoutes(routes(command));
}

bool QuartzSession::isAlready(const QuartzCommand& command) const
{
    return std::ranges::all_of(command.levels,
        [&](int level) { return m_router.matrix().source(level, command.destination) == command.source; });
}

void QuartzSession::tellRoutes(const QList<Crosspoint>& routes)
{
    QByteArray letters;
    for (qsizetype i = 0; i < routes.size(); ++i) {
        const auto& route = routes[i];
        letters += quartz::levelLetter(route.level);
        const bool nextIsTheSame = i + 1 < routes.size() && routes[i + 1].destination == route.destination
            && routes[i + 1].source == route.source;
        if (!nextIsTheSame)
            report('U', std::exchange(letters, {}), route);
    }
}

void QuartzSession::report(char verb, const QByteArray& letters, const Crosspoint& route)
{
    say(QByteArray(".") + verb + letters + number(route.destination) + ',' + number(route.source));
}

void QuartzSession::interpose(int destination)
{
    const auto& matrix = m_router.matrix();
    const int other = (destination + 1) % matrix.count(Side::Destination);
    tellRoutes({{0, other, matrix.source(0, other)}});
}

void QuartzSession::say(const QByteArray& line)
{
    if (!line.isEmpty())
        m_connection.send(line + lineEnd(m_router.quirks().lineEnd));
}

QByteArray QuartzSession::number(int port) const
{
    const auto digits = QByteArray::number(port + 1);
    return m_router.quirks().padNumbers ? digits.rightJustified(3, '0') : digits;
}

} // namespace corvane::emulator
