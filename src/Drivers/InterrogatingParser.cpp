#include "Drivers/InterrogatingParser.h"

namespace corvane {

InterrogatingParser::InterrogatingParser(const RouterConnection& connection, InterrogatedProtocol protocol,
    SerialQueue& queue, RouterEventStream events)
    : m_matrix(connection, std::move(protocol), queue, std::move(events))
{
}

void InterrogatingParser::begin()
{
    for (qint64 destination = 0; destination < m_matrix.destinationCount(); ++destination)
        interrogate(destination);
    m_matrix.expectReports();
    flush();
}

void InterrogatingParser::ingest(std::string_view bytes)
{
    read(bytes);
    flush();
}

void InterrogatingParser::reinterrogate(qint64 destination)
{
    interrogate(destination);
    flush();
}

void InterrogatingParser::flush()
{
    m_matrix.flush();
    const auto outgoing = std::exchange(m_outgoing, {});
    if (m_send && !outgoing.isEmpty())
        m_send(outgoing);
}

} // namespace corvane
