#include "Controllers/MatrixController.h"
#include "Foundation/EventLoopQueue.h"
#include "Model/LabelStore.h"
#include "Model/PanelStore.h"
#include "Model/SalvoStore.h"
#include "bench/BurstDriver.h"
#include "bench/Row.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTimer>

#include <thread>

/// From event to state: a burst of a million tallies goes through stream and controller while the main thread
/// must go on answering. Another object of the event loop notes the longest time that it was kept waiting.
namespace corvane {

namespace {

constexpr int burst = 1'000'000;
constexpr int ports = 1024;

/// Fires on every turn of the event loop and notes the longest gap between two.
class Heartbeat {
public:
    Heartbeat()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            m_longest = std::max(m_longest, m_sinceLast.nsecsElapsed());
            m_sinceLast.start();
        });
        m_timer.start(0);
        m_sinceLast.start();
    }

    double longestMilliseconds() const { return static_cast<double>(m_longest) / 1e6; }

private:
    QTimer m_timer;
    QElapsedTimer m_sinceLast;
    qint64 m_longest = 0;
};

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

    const Heartbeat heartbeat;
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
