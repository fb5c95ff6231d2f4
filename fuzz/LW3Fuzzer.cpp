#include "Drivers/LW3/LW3Parser.h"
#include "fuzz/ParserFuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace corvane;
    fuzz::playConversation({data, size}, [](SerialQueue& queue, const RouterEventStream& events) {
        const auto parser = std::make_shared<LW3Parser>(QStringLiteral("Matrix"), queue, events);
        parser->onSend([](const QByteArray&) {});
        (void)parser->registerCommand(LW3Parser::Command::route);
        return parser;
    });
    return 0;
}
