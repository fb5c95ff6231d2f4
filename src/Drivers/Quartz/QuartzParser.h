#pragma once

#include "Drivers/Interrogating/InterrogatingParser.h"
#include "Drivers/Tcp/DelimitedReader.h"

#include <deque>

namespace corvane {

/// Reads and writes the Evertz Quartz ASCII protocol.
///
/// Lines end in CR, LF or both; those that we send end in CR. Port numbers are one-based on the wire. The
/// video level alone is asked for and commanded; a report of any level counts. "?" and ".E" refuse the oldest
/// take. What is not understood is passed over without a word.
///
/// Used and destroyed on its queue only.
class QuartzParser final : public InterrogatingParser {
public:
    QuartzParser(const RouterConnection& connection, SerialQueue& queue, RouterEventStream events);

    [[nodiscard]] QByteArray commandFor(const Route& route) override;

protected:
    void read(std::string_view bytes) override;
    void interrogate(qint64 destination) override;

private:
    void handle(std::string_view line);
    void handleRefusal();
    void handleReport(std::string_view text);
    void handleNothing(qint64 destination);

    DelimitedReader m_reader{"\n", CarriageReturn::lineFeed};
    /// Destinations of takes that are not yet answered, oldest first. A refusal does not say what it belongs
    /// to: order alone tells.
    std::deque<qint64> m_pendingConnects;
};

} // namespace corvane
