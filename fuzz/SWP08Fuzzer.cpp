#include "Drivers/SWP08/SWP08Parser.h"
#include "fuzz/InterrogationFuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    corvane::fuzz::playInterrogation<corvane::SWP08Parser>({data, size});
    return 0;
}
