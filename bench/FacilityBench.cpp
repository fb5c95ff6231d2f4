#include "Controllers/MatrixController.h"
#include "Foundation/EventLoopQueue.h"
#include "Model/LabelStore.h"
#include "Model/PanelStore.h"
#include "Model/SalvoStore.h"
#include "bench/BurstDriver.h"
#include "bench/Heartbeat.h"
#include "bench/Process.h"
#include "bench/Row.h"
#include "emulator/KumoEmulator.h"
#include "emulator/LW3Emulator.h"
#include "emulator/QuartzEmulator.h"
#include "emulator/SWP08Emulator.h"
#include "emulator/VideohubEmulator.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QSocketNotifier>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <array>
#include <iostream>

/// One thousand routers of all families, connected at once from one process. They live in a second process,
/// so that memory and processor time are those of the program alone.
namespace corvane {

using namespace Qt::StringLiterals;

namespace {

using namespace std::chrono_literals;

constexpr int routers = 1000;
constexpr int ports = 16;
constexpr int changesPerSecond = 10'000;

constexpr std::array families{RouterVendor::blackmagicVideohub, RouterVendor::genericSWP08,
    RouterVendor::evertzQuartz, RouterVendor::lightware, RouterVendor::ajaKumo};

RouterVendor familyOf(int router)
{
    return families[static_cast<std::size_t>(router) % families.size()];
}

/// The far side: all the routers, and somebody who changes their routes once the first line comes in.
class Facility {
public:
    Facility()
    {
        for (int router = 0; router < routers; ++router) {
            m_matrices.push_back(std::make_unique<emulator::EmulatedMatrix>(ports, ports));
            m_faces.push_back(makeFace(familyOf(router), *m_matrices.back()));
            std::cout << m_faces.back()->port() << '\n';
        }
        std::cout << std::flush;
        QObject::connect(&m_somebody, &QTimer::timeout, &m_somebody, [this] { takeSomething(); });
        QObject::connect(&m_standardInput, &QSocketNotifier::activated, &m_somebody, [this] { hear(); });
    }

private:
    static constexpr auto pace = 10ms;

    static std::unique_ptr<emulator::EmulatorServer> makeFace(
        RouterVendor family, emulator::EmulatedMatrix& matrix)
    {
        switch (family) {
        case RouterVendor::genericSWP08:
            return std::make_unique<emulator::SWP08Emulator>(matrix);
        case RouterVendor::evertzQuartz:
            return std::make_unique<emulator::QuartzEmulator>(matrix);
        case RouterVendor::lightware:
            return std::make_unique<emulator::LW3Emulator>(matrix);
        case RouterVendor::ajaKumo:
            return std::make_unique<emulator::KumoEmulator>(matrix);
        default:
            return std::make_unique<emulator::VideohubEmulator>(matrix);
        }
    }

    void hear()
    {
        std::string line;
        if (!std::getline(std::cin, line))
            QCoreApplication::quit();
        else
            m_somebody.start(pace);
    }

    void takeSomething()
    {
        for (int change = 0; change < changesPerSecond * pace.count() / 1000; ++change) {
            auto& matrix = *m_matrices[static_cast<std::size_t>(m_turn % routers)];
            const int destination = (m_turn / routers) % ports;
            matrix.setRoutes({{0, destination, (matrix.source(0, destination) + 1) % ports}});
            ++m_turn;
        }
    }

    std::vector<std::unique_ptr<emulator::EmulatedMatrix>> m_matrices;
    std::vector<std::unique_ptr<emulator::EmulatorServer>> m_faces;
    QTimer m_somebody;
    QSocketNotifier m_standardInput{0, QSocketNotifier::Read};
    int m_turn = 0;
};

int beTheFacility()
{
    const Facility facility;
    return QCoreApplication::exec();
}

std::vector<quint16> startFacility(QProcess& process)
{
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(), {u"facility"_s});
    std::vector<quint16> found;
    while (found.size() < routers) {
        if (!process.canReadLine() && !process.waitForReadyRead())
            qFatal("the facility did not start");
        found.push_back(process.readLine().trimmed().toUShort());
    }
    return found;
}

RouterConnection connectionTo(int router, quint16 port)
{
    RouterConnection connection;
    connection.vendor = familyOf(router);
    connection.host = u"127.0.0.1"_s;
    connection.port = port;
    connection.simSourceCount = ports;
    connection.simDestinationCount = ports;
    return connection;
}

/// Runs the event loop for a while, and tells what it cost: the processor's share, and the longest hold.
void watch(std::string_view what, std::chrono::seconds duration)
{
    const bench::Heartbeat heartbeat;
    const double before = bench::processorSeconds();
    QTimer::singleShot(duration, QCoreApplication::instance(), &QCoreApplication::quit);
    QCoreApplication::exec();
    const auto share = (bench::processorSeconds() - before) / static_cast<double>(duration.count());
    bench::printRow(std::string("  processor use, ").append(what), 100 * share, "% of one");
    bench::printRow("  main thread held at a time, longest", heartbeat.longestMilliseconds(), "ms");
}

int connectToAll()
{
    bench::allowManyFiles();
    QProcess facility;
    const auto facilityPorts = startFacility(facility);

    MainQueue queue;
    DriverFactory drivers(queue);
    const QTemporaryDir folder;
    LabelStore labels(folder.path());
    SalvoStore salvos(folder.path());
    PanelStore panels(folder.path());
    const MatrixController::Environment environment{queue,
        [&](const auto& connection) { return drivers.makeDriver(connection); }, labels, salvos, panels};
    const double memoryBefore = bench::residentMebibytes();
    std::vector<std::shared_ptr<MatrixController>> controllers;
    qint64 changes = 0;
    QElapsedTimer timer;
    timer.start();
    const bench::Heartbeat heartbeat;
    for (int router = 0; router < routers; ++router) {
        const auto connection = connectionTo(router, facilityPorts[static_cast<std::size_t>(router)]);
        controllers.push_back(std::make_shared<MatrixController>(connection, environment));
        QObject::connect(controllers.back().get(), &MatrixController::crosspointChanged, [&] { ++changes; });
        controllers.back()->connect();
    }
    bench::pumpUntil([&] {
        return std::ranges::all_of(
            controllers, [](const auto& controller) { return controller->isConnected(); });
    });
    bench::printRow(
        "1,000 routers of five families: until all are up", static_cast<double>(timer.elapsed()) / 1e3, "s");
    bench::printRow("  main thread held at a time, longest", heartbeat.longestMilliseconds(), "ms");
    bench::printRow(
        "  memory per router", (bench::residentMebibytes() - memoryBefore) * 1024 / routers, "KiB");

    watch("idle", 5s);
    facility.write("change\n");
    changes = 0;
    watch("10,000 changes a second", 5s);
    bench::printRow("  changes that arrived", static_cast<double>(changes) / 5, "/s");
    for (const auto& controller : controllers)
        controller->disconnect();
    QCoreApplication::processEvents();
    facility.closeWriteChannel();
    facility.waitForFinished();
    return 0;
}

} // namespace

} // namespace corvane

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    return argc > 1 ? corvane::beTheFacility() : corvane::connectToAll();
}
