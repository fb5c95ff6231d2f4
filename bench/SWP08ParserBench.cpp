#include "Drivers/SWP08/SWP08Parser.h"
#include "bench/InterrogationBench.h"

std::string corvane::bench::answers(int ports, int shift)
{
    std::string text;
    for (int destination = 0; destination < ports; ++destination) {
        const int source = (destination + shift) % ports;
        const auto tally = QByteArray()
                               .append('\x03')
                               .append('\0')
                               .append(static_cast<char>(destination / 128 << 4 | source / 128))
                               .append(static_cast<char>(destination % 128))
                               .append(static_cast<char>(source % 128));
        text += swp08::frame(tally).toStdString();
    }
    return text;
}

int main(int argc, char** argv)
{
    return corvane::bench::runInterrogationBenches<corvane::SWP08Parser>(argc, argv, "SW-P-08");
}
