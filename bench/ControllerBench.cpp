#include "Controllers/MatrixController.h"
#include "Foundation/EventLoopQueue.h"
#include "Model/LabelStore.h"
#include "Model/PanelStore.h"
#include "Model/SalvoStore.h"
#include "bench/BurstDriver.h"
#include "bench/Heartbeat.h"
#include "bench/Row.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <thread>

/// From event to state: a burst of a million tallies goes through stream and controller while the main thread
/// must go on answering. Another object of the event loop notes the longest time that it was kept waiting.
namespace corvane {

namespace {

constexpr int burst = 1'000'000;
constexpr int ports = 1024;

struct Result {
    double eventsPerSecond;
    double longestHold;
};

Result measure()
{
    MainQueue queue;
    const QTemporaryDir folder;
    LabelStore labels(folder.path());
    SalvoStore salvos(folder.path());
    PanelStore panels(folder.path());
    const auto driver = std::make_shared<bench::BurstDriver>(bench::largeState(ports));
    const auto controller = std::make_shared<MatrixController>(RouterConnection{},
        MatrixController::Environment{queue, [&](const auto&) { return driver; }, labels, salvos, panels});
    int told = 0;
    QObject::connect(controller.get(), &MatrixController::crosspointChanged, [&] { ++told; });
    controller->connect();
    bench::pumpUntil([&] { return controller->isConnected(); });

    const bench::Heartbeat heartbeat;
    QElapsedTimer timer;
    timer.start();
    const std::jthread producer([&] { driver->burstOfTallies(burst, ports); });
    bench::pumpUntil([&] { return told == burst; });
    return {burst / (static_cast<double>(timer.nsecsElapsed()) / 1e9), heartbeat.longestMilliseconds()};
}

} // namespace

} // namespace corvane

int main(int argc, char** argv)
{
    using namespace corvane;
    const QCoreApplication application(argc, argv);
    std::vector<double> rates;
    std::vector<double> holds;
    for (int run = 0; run < 9; ++run) {
        const auto [rate, hold] = measure();
        rates.push_back(rate / 1e6);
        holds.push_back(hold);
    }
    bench::printRow("1,000,000 routeChanged, stream to state", bench::median(rates), "million/s");
    bench::printRow("  main thread held at a time, median run", bench::median(holds), "ms", "<= 8");
    bench::printRow(
        "  main thread held at a time, worst run", *std::ranges::max_element(holds), "ms", "<= 8");
    return 0;
}
