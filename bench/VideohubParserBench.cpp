#include "Drivers/Videohub/VideohubParser.h"
#include "bench/ParserBench.h"

/// How fast a Videohub's words become events.
///
/// Two streams: what a device says on connecting, which becomes one complete state, and the same tables sent
/// again later, where each line becomes an event of its own.
namespace corvane {

using namespace Qt::StringLiterals;

namespace {

using Bench = bench::ParserBench<VideohubParser>;

std::string table(std::string_view header, int count, const auto& value)
{
    std::string text(header);
    text += '\n';
    for (int port = 0; port < count; ++port)
        text += std::to_string(port) + ' ' + value(port) + '\n';
    return text + '\n';
}

std::string tables(int size)
{
    const auto label = [](std::string_view stem) {
        return [stem](int port) { return std::string(stem) + std::to_string(port + 1); };
    };
    return table("INPUT LABELS:", size, label("Camera ")) + table("OUTPUT LABELS:", size, label("Monitor "))
        + table("VIDEO OUTPUT LOCKS:", size, [](int port) { return port % 7 == 0 ? "L" : "U"; })
        + table("VIDEO OUTPUT ROUTING:", size, [size](int port) { return std::to_string(port * 5 % size); });
}

std::string greeting(int size)
{
    const auto count = std::to_string(size);
    return "PROTOCOL PREAMBLE:\nVersion: 2.8\n\nVIDEOHUB DEVICE:\nDevice present: true\nModel name: "
           "Bench\nVideo inputs: "
        + count + "\nVideo outputs: " + count + "\n\n" + tables(size) + "END PRELUDE:\n\n";
}

void greetingBecomesState(benchmark::State& state)
{
    const auto text = greeting(bench::portCount(state));
    for (auto _ : state) {
        Bench bench(u"Bench"_s);
        bench.ingest(text, bench::pieceSize(state, text));
        bench::require(bench.isConnected, "The greeting was not understood.");
    }
    bench::countBytes(state, text.size());
}

void linesBecomeEvents(benchmark::State& state)
{
    const auto size = bench::portCount(state);
    const auto text = tables(size);
    Bench bench(u"Bench"_s);
    bench.ingest(greeting(size), 65536);
    for (auto _ : state) {
        bench.eventCount = 0;
        bench.ingest(text, bench::pieceSize(state, text));
        bench::require(
            bench.eventCount == 4 * static_cast<std::size_t>(size), "Not every line became an event.");
    }
    bench::countBytes(state, text.size());
}

void sizesAndPieces(benchmark::internal::Benchmark* bench)
{
    bench::portsAndPieces(bench, 1152);
}

BENCHMARK(greetingBecomesState)->Apply(sizesAndPieces);
BENCHMARK(linesBecomeEvents)->Apply(sizesAndPieces);

} // namespace

} // namespace corvane

int main(int argc, char** argv)
{
    return corvane::bench::runParserBenches(argc, argv, "Videohub", "greetingBecomesState");
}
