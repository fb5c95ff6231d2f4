#include "Drivers/Videohub/VideohubParser.h"
#include "fuzz/ParserFuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace corvane;
    fuzz::playConversation({data, size}, [](SerialQueue& queue, const RouterEventStream& events) {
        const auto parser = std::make_shared<VideohubParser>(QStringLiteral("Hub"), queue, events);
        parser->onSend([](const QByteArray&) {});
        return parser;
    });
    return 0;
}
