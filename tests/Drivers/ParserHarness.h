#pragma once

#include "Drivers/EventText.h"
#include "support/ManualQueue.h"

#include <QByteArray>

#include <functional>
#include <string>
#include <vector>

namespace corvane {

using Texts = std::vector<std::string>;

/// A router called "Studio" of a saved size.
inline RouterConnection studio(qint64 sources, qint64 destinations)
{
    RouterConnection router;
    router.name = u"Studio"_s;
    router.simSourceCount = sources;
    router.simDestinationCount = destinations;
    return router;
}

/// A clock that the test moves, and a stream whose events are read as texts.
struct EventHarness {
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

    ManualQueue queue;
    RouterEventStream events;
    EventLog log{events, queue};
};

/// A parser, made with what it is told of its router.
template <typename Parser>
struct ParserHarness : EventHarness {
    explicit ParserHarness(const auto& router) : parser(router, queue, events) { }

    /// The events that these bytes cause at once.
    Texts hear(std::string_view bytes)
    {
        parser.ingest(bytes);
        return settle();
    }

    /// The events of bytes that come in these pieces.
    Texts hearAll(const Texts& pieces)
    {
        for (const auto& piece : pieces)
            parser.ingest(piece);
        return settle();
    }

    Parser parser;
};

/// Hands a stream over in two pieces, cut at each of its bytes, and then byte by byte.
inline void forEachCut(const std::string& stream, const std::function<void(const Texts& pieces)>& hear)
{
    for (std::size_t cut = 0; cut <= stream.size(); ++cut) {
        SCOPED_TRACE(cut);
        hear({stream.substr(0, cut), stream.substr(cut)});
    }
    SCOPED_TRACE("byte by byte");
    Texts bytes;
    for (const char byte : stream)
        bytes.emplace_back(1, byte);
    hear(bytes);
}

/// The text with each of its line feeds replaced.
inline std::string withLineEnds(const std::string& text, const std::string& end)
{
    std::string result;
    for (const char byte : text)
        result += byte == '\n' ? end : std::string(1, byte);
    return result;
}

/// A parser of a router that has to be asked, and what it had to say to it.
template <typename Parser>
struct InterrogatingParserHarness : ParserHarness<Parser> {
    explicit InterrogatingParserHarness(const RouterConnection& router) : ParserHarness<Parser>(router)
    {
        this->parser.onSend([this](const QByteArray& bytes) {
            sent += bytes.toStdString();
            ++sends;
        });
    }

    /// What has gone out since the last call.
    std::string takeSent() { return std::exchange(sent, {}); }

    std::string sent;
    int sends = 0;
};

} // namespace corvane
