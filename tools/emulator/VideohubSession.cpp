#include "emulator/VideohubSession.h"

#include "emulator/VideohubCommand.h"
#include "emulator/VideohubEmulator.h"

namespace corvane::emulator {

namespace {

template <typename Change>
QList<int> destinations(const QList<Change>& changes)
{
    QList<int> result;
    for (const auto& change : changes)
        result << change.destination;
    return result;
}

} // namespace

VideohubSession::VideohubSession(VideohubEmulator& hub, EmulatorConnection& connection)
    : m_hub(hub),
      m_connection(connection),
      m_writer(hub.matrix(), hub.quirks(), hub.identity(), connection.id())
{
    const auto* matrix = &hub.matrix();
    connect(matrix, &EmulatedMatrix::routesChanged, this,
        [this](const auto& routes) { m_connection.send(m_writer.routes(destinations(routes))); });
    connect(matrix, &EmulatedMatrix::locksChanged, this,
        [this](const auto& locks) { m_connection.send(m_writer.locks(destinations(locks))); });
    connect(matrix, &EmulatedMatrix::labelsChanged, this, &VideohubSession::tellLabels);
    connect(matrix, &EmulatedMatrix::replaced, this, &VideohubSession::greet);
}

void VideohubSession::greet()
{
    m_connection.send(m_hub.capture().value_or(m_writer.greeting()));
}

void VideohubSession::received(const QByteArray& bytes)
{
    const auto blocks = m_reader.feed(bytes);
    for (const auto& block : blocks)
        handle(block);
}

void VideohubSession::handle(const VideohubBlock& block)
{
    m_hub.record(block.text());
    if (block.lines.isEmpty()) {
        answer(block.header);
        return;
    }
    const auto command = readCommand(block, m_hub.matrix(), m_hub.quirks(), m_connection.id());
    if (m_hub.faults().takeRefusal() || !command) {
        m_connection.send(m_writer.refusal());
        return;
    }
    m_connection.send(m_writer.acknowledgement());
    if (!m_hub.faults().acknowledgeOnly)
        carryOut(*command, m_hub.matrix());
}

void VideohubSession::answer(const QByteArray& question)
{
    const auto answer = m_writer.answer(question);
    m_connection.send(answer ? m_writer.acknowledgement() + *answer : m_writer.refusal());
}

void VideohubSession::tellLabels(const QList<LabelChange>& labels)
{
    for (const auto side : {Side::Source, Side::Destination}) {
        QList<int> indexes;
        for (const auto& label : labels) {
            if (label.side == side)
                indexes << label.index;
        }
        if (!indexes.isEmpty())
            m_connection.send(m_writer.labels(side, indexes));
    }
}

} // namespace corvane::emulator
