#include "bench/ParserBench.h"

#include "bench/Row.h"

#include <map>

namespace corvane::bench {

namespace {

/// Prints each run as a row, and keeps the rates for their ratios.
class RowReporter final : public benchmark::BenchmarkReporter {
public:
    RowReporter(std::string protocol, std::string stream)
        : m_protocol(std::move(protocol)), m_stream(std::move(stream))
    {
    }

    bool ReportContext(const Context& /*context*/) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const auto& run : runs) {
            const auto name = run.run_name.function_name + "/" + run.run_name.args;
            const auto rate = run.counters.at("bytes_per_second") / 1e6;
            const bool hasGoal = name == m_stream + "/ports:288/piece:0";
            printRow(m_protocol + " " + name, rate, "MB/s", hasGoal ? ">= 150" : "");
            m_rates[name] = rate;
        }
    }

    void printRatios() const
    {
        for (const auto& [name, rate] : m_rates) {
            const auto whole = name.find("/piece:0");
            if (!name.starts_with(m_stream) || whole == std::string::npos)
                continue;
            const auto single = m_rates.find(name.substr(0, whole) + "/piece:1");
            if (single != m_rates.end())
                printRow("  one byte at a time costs, "
                        + name.substr(m_stream.size() + 1, whole - m_stream.size() - 1),
                    rate / single->second, "x whole", "<= 30");
        }
    }

private:
    const std::string m_protocol;
    const std::string m_stream;
    std::map<std::string, double> m_rates;
};

} // namespace

WorkItem BenchQueue::after(Duration /*delay*/, Function function)
{
    return m_waiting.emplace_back(std::move(function));
}

void BenchQueue::run()
{
    for (const auto& function : std::exchange(m_ready, {}))
        function();
}

void BenchQueue::pass(Duration time)
{
    m_now += time;
    for (auto& item : std::exchange(m_waiting, {}))
        item.perform();
    run();
}

void portsAndPieces(benchmark::internal::Benchmark* bench, int most)
{
    bench->ArgNames({"ports", "piece"});
    for (const int ports : {288, most}) {
        for (const int piece : {0, 1460, 1})
            bench->Args({ports, piece});
    }
}

int portCount(const benchmark::State& state)
{
    return static_cast<int>(state.range(0));
}

std::size_t pieceSize(const benchmark::State& state, std::string_view text)
{
    return state.range(1) == 0 ? text.size() : static_cast<std::size_t>(state.range(1));
}

void require(bool isDone, const char* complaint)
{
    if (!isDone)
        throw std::logic_error(complaint);
}

void countBytes(benchmark::State& state, std::size_t textSize)
{
    state.SetBytesProcessed(state.iterations() * static_cast<qint64>(textSize));
}

int runParserBenches(int argc, char** argv, const std::string& protocol, const std::string& stream)
{
    benchmark::Initialize(&argc, argv);
    RowReporter reporter(protocol, stream);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printRatios();
    return 0;
}

} // namespace corvane::bench
