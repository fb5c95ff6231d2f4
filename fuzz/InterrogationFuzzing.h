#pragma once

#include "fuzz/ParserFuzzing.h"

namespace corvane::fuzz {

/// A conversation with a router whose size is saved, after one take.
template <typename Parser>
void playInterrogation(Bytes input)
{
    playConversation(input, [](SerialQueue& queue, const RouterEventStream& events) {
        RouterConnection connection;
        connection.simSourceCount = 300;
        connection.simDestinationCount = 300;
        const auto parser = std::make_shared<Parser>(connection, queue, events);
        parser->onSend([](const QByteArray&) {});
        (void)parser->commandFor({0, 16, 2});
        return parser;
    });
}

} // namespace corvane::fuzz
