#include "Drivers/Quartz/QuartzParser.h"
#include "fuzz/InterrogationFuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    corvane::fuzz::playInterrogation<corvane::QuartzParser>({data, size});
    return 0;
}
