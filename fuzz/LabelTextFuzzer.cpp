#include "Model/LabelImport.h"

#include <cstddef>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace corvane;
    const auto text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    for (const auto target :
        {DelimitedTarget::sources, DelimitedTarget::destinations, DelimitedTarget::both}) {
        const auto labels = LabelImport::parseDelimited(text, target);
        Q_ASSERT(!labels.sources.contains(-1) && !labels.destinations.contains(-1));
    }
    return 0;
}
