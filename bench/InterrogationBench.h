#pragma once

#include "bench/ParserBench.h"

#include <array>

/// How fast the reports of a router that was asked for each of its crosspoints are read.
///
/// Three cases: the answers that become the first picture, the ports of which are named in the measured time;
/// reports of what is known already; and reports of which each becomes an event.
namespace corvane::bench {

/// What a router of this size answers when every destination shows the source `shift` after its own number.
/// A protocol's bench defines it.
std::string answers(int ports, int shift);

template <typename Parser>
struct InterrogationBench : ParserBench<Parser> {
    explicit InterrogationBench(int ports) : ParserBench<Parser>(routerOfSize(ports))
    {
        this->parser.onSend([](const QByteArray& bytes) { benchmark::DoNotOptimize(bytes.size()); });
    }

    void connect(std::string_view text, std::size_t pieceSize)
    {
        this->ingest(text, pieceSize);
        this->queue.pass(std::chrono::seconds(1));
        require(this->isConnected, "The answers were not understood.");
    }

    static RouterConnection routerOfSize(int ports)
    {
        RouterConnection router;
        router.simSourceCount = ports;
        router.simDestinationCount = ports;
        return router;
    }
};

template <typename Parser>
void answersBecomeState(benchmark::State& state)
{
    const auto text = answers(portCount(state), 5);
    for (auto _ : state) {
        InterrogationBench<Parser> bench(portCount(state));
        bench.connect(text, pieceSize(state, text));
    }
    countBytes(state, text.size());
}

template <typename Parser>
void repeatsAreNoNews(benchmark::State& state)
{
    const auto text = answers(portCount(state), 5);
    InterrogationBench<Parser> bench(portCount(state));
    bench.connect(text, text.size());
    for (auto _ : state)
        bench.ingest(text, pieceSize(state, text));
    require(bench.eventCount == 1, "What was known became an event.");
    countBytes(state, text.size());
}

template <typename Parser>
void changesBecomeEvents(benchmark::State& state)
{
    const std::array texts{answers(portCount(state), 5), answers(portCount(state), 6)};
    InterrogationBench<Parser> bench(portCount(state));
    bench.connect(texts[0], texts[0].size());
    std::size_t turn = 0;
    for (auto _ : state) {
        const auto& text = texts.at(++turn % texts.size());
        bench.eventCount = 0;
        bench.ingest(text, pieceSize(state, text));
        require(bench.eventCount == static_cast<std::size_t>(portCount(state)),
            "Not every report became an event.");
    }
    countBytes(state, texts[0].size());
}

template <typename Parser>
int runInterrogationBenches(int argc, char** argv, const std::string& protocol)
{
    // More cannot be reported in SW-P-08.
    constexpr auto upToMost = [](auto* bench) { portsAndPieces(bench, 1024); };
    benchmark::RegisterBenchmark("answersBecomeState", answersBecomeState<Parser>)->Apply(upToMost);
    benchmark::RegisterBenchmark("repeatsAreNoNews", repeatsAreNoNews<Parser>)->Apply(upToMost);
    benchmark::RegisterBenchmark("changesBecomeEvents", changesBecomeEvents<Parser>)->Apply(upToMost);
    return runParserBenches(argc, argv, protocol, "repeatsAreNoNews");
}

} // namespace corvane::bench
