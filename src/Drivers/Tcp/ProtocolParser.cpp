#include "Drivers/Tcp/ProtocolParser.h"

namespace corvane {

ProtocolParser::ProtocolParser(SerialQueue& queue, RouterEventStream events)
    : m_queue(queue), m_events(std::move(events))
{
}

void ProtocolParser::begin()
{
    greet();
    flush();
}

void ProtocolParser::ingest(std::string_view bytes)
{
    if (m_hasEnded)
        return;
    read(bytes);
    flush();
}

void ProtocolParser::end()
{
    m_hasEnded = true;
    for (auto& timer : m_timers)
        timer.cancel();
}

void ProtocolParser::flush()
{
    if (m_hasEnded) {
        m_batch.clear();
        m_unsent.clear();
        return;
    }
    m_events.yield(std::move(m_batch));
    if (const auto unsent = std::exchange(m_unsent, {}); !unsent.isEmpty() && m_writeToLink)
        m_writeToLink(unsent);
}

QuietTimer& ProtocolParser::addTimer(
    Duration delay, std::function<void()> onQuiet, std::optional<Duration> limit)
{
    return m_timers.emplace_back(
        m_queue, delay,
        [this, onQuiet = std::move(onQuiet)] {
            onQuiet();
            flush();
        },
        limit);
}

} // namespace corvane
