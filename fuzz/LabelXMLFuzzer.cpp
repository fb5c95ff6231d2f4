#include "Model/LabelImport.h"

#include <cstddef>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace corvane;
    const QByteArray document(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto labels = LabelImport::parseXML(document);
    Q_ASSERT(!labels.sources.contains(-1) && !labels.destinations.contains(-1));
    return 0;
}
