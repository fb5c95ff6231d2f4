#include "Drivers/Kumo/KumoParser.h"
#include "Drivers/Tcp/Ports.h"

#include <cstddef>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace corvane;
    const QByteArray body(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    try {
        if (const auto value = KumoParser::parameterValue(body)) {
            if (const auto number = KumoParser::integer(*value))
                (void)KumoParser::statusParameter(zeroBased(*number));
            if (const auto label = KumoParser::label(*value))
                (void)KumoParser::setLabelPath(KumoParser::sourceCountParameter(), *label);
        }
    } catch (const KumoParser::ReplyError&) {
    }
    return 0;
}
