#pragma once

#include "Drivers/Contract/RouterDriver.h"
#include "Foundation/SerialQueue.h"

#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What the benchmarks of the parsers share: a parser with a consumer behind it, and how its rate is told.
///
/// Each stream goes in whole, in network packets and byte by byte. The events are consumed and destroyed
/// inside the measured time, for the program can't have them for less.
namespace corvane::bench {

/// Runs nothing until told, on the thread of the bench, which also moves its time.
class BenchQueue final : public SerialQueue {
public:
    void async(Function function) override { m_ready.push_back(std::move(function)); }
    WorkItem after(Duration delay, Function function) override;
    Instant now() const override { return m_now; }
    bool isCurrent() const override { return true; }

    void run();

    /// Everything that waits falls due.
    void pass(Duration time);

private:
    std::vector<Function> m_ready;
    std::vector<WorkItem> m_waiting;
    Instant m_now;
};

template <typename Parser>
struct ParserBench {
    /// `router` is what the parser is told of its router.
    explicit ParserBench(const auto& router) : parser(router, queue, events)
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
    Parser parser;
    std::size_t eventCount = 0;
    bool isConnected = false;
};

/// The "ports" and "piece" of a run: 288 ports and `most`, each whole (0), in pieces of what an Ethernet
/// packet carries, and byte by byte.
void portsAndPieces(benchmark::internal::Benchmark* bench, int most);
int portCount(const benchmark::State& state);
std::size_t pieceSize(const benchmark::State& state, std::string_view text);

/// Ends the bench where a parser has not done what is measured.
void require(bool isDone, const char* complaint);

/// Tells the rate, when every iteration has read one text of this size.
void countBytes(benchmark::State& state, std::size_t textSize);

/// Runs all that the program has registered and prints a row for each run, then what single bytes cost. The
/// goals are those of `stream`, the benchmark that the protocol's speed is judged by.
int runParserBenches(int argc, char** argv, const std::string& protocol, const std::string& stream);

} // namespace corvane::bench
