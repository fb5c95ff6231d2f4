#include "Drivers/LW3Parser.h"
#include "bench/Row.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

/// How fast the words of an LW3 device become events.
///
/// Two streams: what a device says on connecting, which becomes one complete state, and a storm of changes:
/// routing lists in which every item is new. Each goes in whole, in network packets and byte by byte. The
/// events are consumed and destroyed inside the measured time, for the program can't have them for less.
namespace corvane {

namespace {

/// Runs nothing until told, on the thread of the bench; its time moves only to fire what waits.
class BenchQueue final : public SerialQueue {
public:
    void async(Function function) override { m_ready.push_back(std::move(function)); }
    WorkItem after(Duration delay, Function function) override
    {
        m_lastDelay = std::max(m_lastDelay, delay);
        return m_waiting.emplace_back(std::move(function));
    }
    Instant now() const override { return m_now; }
    bool isCurrent() const override { return true; }

    void run()
    {
        for (const auto& function : std::exchange(m_ready, {}))
            function();
    }

    void runWaiting()
    {
        m_now += m_lastDelay;
        for (auto& item : std::exchange(m_waiting, {}))
            item.perform();
        run();
    }

private:
    std::vector<Function> m_ready;
    std::vector<WorkItem> m_waiting;
    Duration m_lastDelay{};
    Instant m_now;
};

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
    LW3Parser parser{QStringLiteral("Bench"), queue, events};
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
        bench.queue.runWaiting();
        if (!bench.isConnected)
            throw std::logic_error("The greeting was not understood.");
    }
    report(state, text);
}

void changesBecomeEvents(benchmark::State& state)
{
    const auto size = static_cast<int>(state.range(0));
    const auto text = storm(size);
    Bench bench;
    bench.ingest(greeting(size), 65536);
    bench.queue.runWaiting();
    for (auto _ : state) {
        bench.eventCount = 0;
        bench.ingest(text, pieceSize(state, text));
        if (bench.eventCount != 2 * static_cast<std::size_t>(size))
            throw std::logic_error("Not every change became an event.");
    }
    report(state, text);
}

/// 0 stands for the whole text at once, 1460 for what an Ethernet packet carries.
void sizesAndPieces(benchmark::internal::Benchmark* bench)
{
    bench->ArgNames({"ports", "piece"});
    for (const int piece : {0, 1460, 1})
        bench->Args({288, piece});
}

BENCHMARK(greetingBecomesState)->Apply(sizesAndPieces);
BENCHMARK(changesBecomeEvents)->Apply(sizesAndPieces);

/// Prints each run as a row, and keeps the rates for their ratio.
class RowReporter final : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const auto& run : runs) {
            const auto name = run.run_name.function_name + "/" + run.run_name.args;
            m_rates[name] = run.counters.at("bytes_per_second") / 1e6;
            const bool isWholeGreeting = name == "greetingBecomesState/ports:288/piece:0";
            bench::printRow("LW3 " + name, m_rates[name], "MB/s", isWholeGreeting ? ">= 150" : "");
        }
    }

    void printRatio() const
    {
        const std::string name = "greetingBecomesState/ports:288/piece:";
        bench::printRow("  one byte at a time costs", m_rates.at(name + "0") / m_rates.at(name + "1"),
            "x whole", "<= 30");
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
    reporter.printRatio();
    return 0;
}
