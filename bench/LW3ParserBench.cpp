#include "Drivers/LW3/LW3Parser.h"
#include "bench/ParserBench.h"

/// How fast the words of an LW3 device become events.
///
/// Two streams: what a device says on connecting, which becomes one complete state, and a storm of changes:
/// routing lists in which every item is new.
namespace corvane {

using namespace Qt::StringLiterals;

namespace {

using Bench = bench::ParserBench<LW3Parser>;

std::string list(std::string_view property, int count, const auto& item)
{
    auto text = "/MEDIA/XP/VIDEO." + std::string(property) + "=";
    for (int port = 0; port < count; ++port)
        text += std::string(port == 0 ? "" : ";") + item(port);
    return text + "\r\n";
}

std::string routes(int size, int offset)
{
    return list("DestinationConnectionStatus", size,
        [=](int port) { return std::string("I") + std::to_string((port + offset) % size + 1); });
}

std::string names(int size, char side)
{
    std::string text;
    for (int port = 1; port <= size; ++port)
        text += "pw /MEDIA/NAMES/VIDEO." + std::string(1, side) + std::to_string(port) + "=1;Camera "
            + std::to_string(port) + "\r\n";
    return text;
}

std::string signalsOf(int size)
{
    std::string text;
    for (int port = 1; port <= size; ++port) {
        const auto node = "pr /MEDIA/PORTS/VIDEO/I" + std::to_string(port) + "/STATUS.";
        text += node + "SignalPresent=true\r\n" + node + "ActiveResolution=1920x1080p60\r\n";
    }
    return text;
}

std::string greeting(int size)
{
    return "pr /.ProductName=Bench\r\n" + names(size, 'I') + names(size, 'O') + "pr " + routes(size, 0)
        + "pr " + list("DestinationPortStatus", size, [](int) { return std::string("T00AA"); })
        + signalsOf(size);
}

std::string storm(int size)
{
    return "CHG " + routes(size, 1) + "CHG " + routes(size, 0);
}

/// A parser that has heard all of `text` and then nothing for a while.
void hearGreeting(Bench& bench, const std::string& text, std::size_t pieceSize)
{
    bench.ingest(text, pieceSize);
    bench.queue.pass(LW3Parser::stateQuiet);
    bench::require(bench.isConnected, "The greeting was not understood.");
}

void greetingBecomesState(benchmark::State& state)
{
    const auto text = greeting(bench::portCount(state));
    for (auto _ : state) {
        Bench bench(u"Bench"_s);
        hearGreeting(bench, text, bench::pieceSize(state, text));
    }
    bench::countBytes(state, text.size());
}

void changesBecomeEvents(benchmark::State& state)
{
    const auto size = bench::portCount(state);
    const auto text = storm(size);
    Bench bench(u"Bench"_s);
    hearGreeting(bench, greeting(size), 65536);
    for (auto _ : state) {
        bench.eventCount = 0;
        bench.ingest(text, bench::pieceSize(state, text));
        bench::require(
            bench.eventCount == 2 * static_cast<std::size_t>(size), "Not every change became an event.");
    }
    bench::countBytes(state, text.size());
}

void sizesAndPieces(benchmark::internal::Benchmark* bench)
{
    bench::portsAndPieces(bench, 1152);
}

BENCHMARK(greetingBecomesState)->Apply(sizesAndPieces);
BENCHMARK(changesBecomeEvents)->Apply(sizesAndPieces);

} // namespace

} // namespace corvane

int main(int argc, char** argv)
{
    return corvane::bench::runParserBenches(argc, argv, "LW3", "greetingBecomesState");
}
