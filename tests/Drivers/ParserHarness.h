#pragma once

#include "Drivers/EventText.h"
#include "support/ManualQueue.h"

#include <QByteArray>

#include <string>
#include <vector>

namespace corvane {

using Texts = std::vector<std::string>;

/// A router called "Studio" of a saved size.
inline RouterConnection studio(qint64 sources, qint64 destinations)
{
    RouterConnection router;
    router.name = QStringLiteral("Studio");
    router.simSourceCount = sources;
    router.simDestinationCount = destinations;
    return router;
}

/// A parser of a router that has to be asked, whose clock the test moves, and what it had to say to both
/// sides.
template <typename Parser>
struct ParserHarness {
    explicit ParserHarness(const RouterConnection& router) : parser(router, queue, events)
    {
        parser.onSend([this](const QByteArray& bytes) {
            sent += bytes.toStdString();
            ++sends;
        });
    }

    /// The events that these bytes cause at once.
    Texts hear(std::string_view bytes)
    {
        parser.ingest(bytes);
        return settle();
    }

    Texts wait(Duration time)
    {
        queue.advance(time);
        return settle();
    }

    Texts settle()
    {
        queue.runReady();
        return log.takeNew();
    }

    /// What has gone out since the last call.
    std::string takeSent() { return std::exchange(sent, {}); }

    ManualQueue queue;
    RouterEventStream events;
    EventLog log{events, queue};
    Parser parser;
    std::string sent;
    int sends = 0;
};

} // namespace corvane
