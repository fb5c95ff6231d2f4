#include "Drivers/QuartzParser.h"
#include "fuzz/ParserFuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace corvane;
    fuzz::playConversation({data, size}, [](SerialQueue& queue, const RouterEventStream& events) {
        RouterConnection connection;
        connection.simSourceCount = 300;
        connection.simDestinationCount = 300;
        const auto parser = std::make_shared<QuartzParser>(connection, queue, events);
        parser->onSend([](const QByteArray&) {});
        (void)parser->commandFor({0, 16, 2});
        return parser;
    });
    return 0;
}
