#include "Drivers/VideohubParser.h"
#include "bench/Row.h"

#include <benchmark/benchmark.h>

#include <array>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

/// How fast a Videohub's words become events.
///
/// Two streams: what a device says on connecting, which becomes one complete state, and the same tables sent
/// again later, where each line becomes an event of its own. Each goes in whole, in network packets and byte
/// by byte. The events are consumed and destroyed inside the measured time, for the program can't have them
/// for less.
namespace corvane {

namespace {

/// Runs nothing until told, on the thread of the bench; its time stands still.
class BenchQueue final : public SerialQueue {
public:
    void async(Function function) override { m_ready.push_back(std::move(function)); }
    WorkItem after(Duration, Function function) override { return WorkItem(std::move(function)); }
    Instant now() const override { return {}; }
    bool isCurrent() const override { return true; }

    void run()
    {
        for (const auto& function : std::exchange(m_ready, {}))
            function();
    }

private:
    std::vector<Function> m_ready;
};

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

/// A parser with a consumer behind it.
struct Bench {
    Bench()
    {
        events.consume(queue, {}, [this](RouterDriverEvent&& event) {
            ++eventCount;
            isConnected = isConnected || std::holds_alternative<driverEvent::Connected>(event);
        });
    }

    void ingest(std::string_view text, std::size_t pieceSize)
    {
        for (std::size_t begin = 0; begin < text.size(); begin += pieceSize)
            parser.ingest(text.substr(begin, pieceSize));
        queue.run();
    }

    BenchQueue queue;
    RouterEventStream events;
    VideohubParser parser{QStringLiteral("Bench"), queue, events};
    std::size_t eventCount = 0;
    bool isConnected = false;
};

std::size_t pieceSize(const benchmark::State& state, const std::string& text)
{
    return state.range(1) == 0 ? text.size() : static_cast<std::size_t>(state.range(1));
}

void report(benchmark::State& state, const std::string& text)
{
    state.SetBytesProcessed(state.iterations() * static_cast<qint64>(text.size()));
}

void greetingBecomesState(benchmark::State& state)
{
    const auto text = greeting(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        Bench bench;
        bench.ingest(text, pieceSize(state, text));
        if (!bench.isConnected)
            throw std::logic_error("The greeting was not understood.");
    }
    report(state, text);
}

void linesBecomeEvents(benchmark::State& state)
{
    const auto size = static_cast<int>(state.range(0));
    const auto text = tables(size);
    Bench bench;
    bench.ingest(greeting(size), 65536);
    for (auto _ : state) {
        bench.eventCount = 0;
        bench.ingest(text, pieceSize(state, text));
        if (bench.eventCount != 4 * static_cast<std::size_t>(size))
            throw std::logic_error("Not every line became an event.");
    }
    report(state, text);
}

/// 0 stands for the whole text at once, 1460 for what an Ethernet packet carries.
void sizesAndPieces(benchmark::internal::Benchmark* bench)
{
    bench->ArgNames({"ports", "piece"});
    for (const int size : {288, 1152}) {
        for (const int piece : {0, 1460, 1})
            bench->Args({size, piece});
    }
}

BENCHMARK(greetingBecomesState)->Apply(sizesAndPieces);
BENCHMARK(linesBecomeEvents)->Apply(sizesAndPieces);

/// Prints each run as a row, and keeps the rates for their ratios.
class RowReporter final : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const auto& run : runs) {
            const auto name = run.run_name.function_name + "/" + run.run_name.args;
            m_rates[name] = run.counters.at("bytes_per_second") / 1e6;
            const bool isWholeGreeting = name == "greetingBecomesState/ports:288/piece:0";
            bench::printRow("Videohub " + name, m_rates[name], "MB/s", isWholeGreeting ? ">= 150" : "");
        }
    }

    void printRatios() const
    {
        for (const std::string ports : {"288", "1152"}) {
            const auto name = "greetingBecomesState/ports:" + ports + "/piece:";
            bench::printRow("  one byte at a time costs, " + ports + " ports",
                m_rates.at(name + "0") / m_rates.at(name + "1"), "x whole", "<= 30");
        }
    }

private:
    std::map<std::string, double> m_rates;
};

} // namespace

} // namespace corvane

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    corvane::RowReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printRatios();
    return 0;
}
