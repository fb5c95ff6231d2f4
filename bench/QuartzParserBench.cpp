#include "Drivers/Quartz/QuartzParser.h"
#include "bench/InterrogationBench.h"

std::string corvane::bench::answers(int ports, int shift)
{
    std::string text;
    for (int destination = 0; destination < ports; ++destination)
        text += ".AV" + std::to_string(destination + 1) + ','
            + std::to_string((destination + shift) % ports + 1) + '\r';
    return text;
}

int main(int argc, char** argv)
{
    return corvane::bench::runInterrogationBenches<corvane::QuartzParser>(argc, argv, "Quartz");
}
