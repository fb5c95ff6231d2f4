#include "App/MainWindow.h"
#include "Drivers/Videohub/VideohubDriver.h"
#include "Foundation/EventLoopQueue.h"
#include "Theme/Fonts.h"
#include "bench/BurstDriver.h"
#include "bench/Heartbeat.h"
#include "bench/Row.h"
#include "emulator/VideohubEmulator.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QProcess>
#include <QQuickItem>
#include <QSemaphore>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>

#include <chrono>
#include <iostream>
#include <mutex>
#include <optional>

/// What a hundred salvos of 1,024 routes cost: to open their sheet, to keep it true while tallies pour in,
/// and to fire one of them at a router. Started without arguments it runs itself once for each renderer.
namespace corvane {

using namespace Qt::StringLiterals;

namespace {

using namespace std::chrono_literals;

constexpr int ports = 1024;
constexpr int salvos = 100;
constexpr int openings = 9;
constexpr int fires = 15;
constexpr auto watched = 5s;

double milliseconds(const QElapsedTimer& since)
{
    return static_cast<double>(since.nsecsElapsed()) / 1e6;
}

Salvo largeSalvo(int number)
{
    Salvo salvo;
    salvo.name = u"Salvo %1"_s.arg(number);
    for (int destination = 0; destination < ports; ++destination)
        salvo.routes.append({0, destination, (destination + number) % ports});
    return salvo;
}

/// A Videohub that has an event loop of its own, so that what it does costs the program nothing.
class Videohub final : public QThread {
public:
    Videohub()
    {
        start();
        m_isUp.acquire();
    }
    ~Videohub() override
    {
        quit();
        wait();
    }
    [[nodiscard]] quint16 port() const { return m_port; }

protected:
    void run() override
    {
        emulator::EmulatedMatrix matrix(ports, ports);
        const emulator::VideohubEmulator face(matrix);
        m_port = face.port();
        m_isUp.release();
        exec();
    }

private:
    QSemaphore m_isUp;
    quint16 m_port = 0;
};

/// A Videohub's driver that counts the commands it has handed to the socket.
class CountingDriver final : public RouterDriver {
public:
    CountingDriver(SerialQueue& mainQueue, SerialQueue& thread, const RouterConnection& router)
        : m_thread(thread), m_inner(std::make_shared<VideohubDriver>(router, thread))
    {
        m_inner->events().consume(
            mainQueue, m_stop.get_token(), [this](RouterDriverEvent&& event) { yield(std::move(event)); });
    }
    ~CountingDriver() override
    {
        m_stop.request_stop();
        m_inner->abandon();
    }

    QCoro::Task<> connect() override { return m_inner->connect(); }
    QCoro::Task<> disconnect() override { return m_inner->disconnect(); }
    QCoro::Task<> take(qint64 source, qint64 destination, qint64 level) override
    {
        return m_inner->take(source, destination, level);
    }
    QCoro::Task<> takeAll(QList<Route> routes) override
    {
        const auto sending = m_inner->takeAll(routes);
        // All that it has given to its thread is done.
        m_thread.sync([] {});
        ++sent;
        sentAt = std::chrono::steady_clock::now();
        co_await sending;
    }
    QCoro::Task<> setLock(qint64, qint64, bool) override { co_return; }
    QCoro::Task<> setLabel(QString, qint64, PortKind) override { co_return; }

    int sent = 0;
    /// When the last one was.
    std::chrono::steady_clock::time_point sentAt;

private:
    SerialQueue& m_thread;
    const std::shared_ptr<VideohubDriver> m_inner;
    std::stop_source m_stop;
};

/// The program's window on one router with all these salvos.
class Studio {
public:
    explicit Studio(const std::function<std::shared_ptr<RouterDriver>(SerialQueue& mainQueue)>& makeDriver)
        : m_store(
            m_queue, [&](const RouterConnection&) { return m_driver = makeDriver(m_queue); }, m_folder.path())
    {
        RouterConnection router;
        m_store.setConnections({router});
        m_store.setSelectedConnectionID(router.id);
        for (int number = 1; number <= salvos; ++number)
            m_store.salvoStore().add(largeSalvo(number), router.id);
        // Whatever it changes, it reads the others back.
        controller().deleteSalvo({});
        m_window = std::make_unique<MainWindow>(m_queue, m_store);
        m_window->show();
        controller().connect();
        bench::pumpUntil([this] { return controller().isConnected(); });
        m_window->grabWindow();
    }

    [[nodiscard]] MatrixController& controller() { return m_store.controller(*m_store.selectedConnection()); }
    [[nodiscard]] WorkspaceModel& workspace()
    {
        return *m_window->rootObject()->property("model").value<ContentViewModel*>()->workspace();
    }
    [[nodiscard]] MainWindow& window() { return *m_window; }
    template <typename Driver>
    [[nodiscard]] Driver& driver()
    {
        return static_cast<Driver&>(*m_driver);
    }

private:
    MainQueue m_queue;
    QTemporaryDir m_folder;
    std::shared_ptr<RouterDriver> m_driver;
    ConnectionStore m_store;
    std::unique_ptr<MainWindow> m_window;
};

void measureOpening(const std::string& renderer, Studio& studio)
{
    std::vector<double> times;
    for (int opening = 0; opening < openings; ++opening) {
        QElapsedTimer timer;
        timer.start();
        studio.workspace().setShowingSalvos(true);
        studio.window().grabWindow();
        times.push_back(milliseconds(timer));
        studio.workspace().setShowingSalvos(false);
        studio.window().grabWindow();
        // Screens die on the event loop's next turn.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
    bench::printRow(
        renderer + " salvos, 100 of 1,024 routes: open the sheet, first time", times.front(), "ms", "<= 100");
    bench::printRow("  median", bench::median(times), "ms", "<= 100");
}

/// One tally a millisecond, with the sheet open.
void measureTallies(Studio& studio, bool isSheetOpen)
{
    studio.workspace().setShowingSalvos(isSheetOpen);
    if (isSheetOpen)
        studio.workspace().salvoSheet()->press(studio.workspace().salvoSheet()->startRow());
    studio.window().grabWindow();
    studio.window().requestUpdate();
    QCoreApplication::processEvents();
    // Frames may be drawn by a thread of their own.
    std::mutex mutex;
    std::vector<double> frames;
    QElapsedTimer frame;
    std::optional<QObject> observer(std::in_place);
    const auto& window = studio.window();
    QObject::connect(
        &window, &QQuickWindow::beforeSynchronizing, &*observer, [&] { frame.start(); },
        Qt::DirectConnection);
    QObject::connect(
        &window, &QQuickWindow::frameSwapped, &*observer,
        [&] {
            const std::lock_guard lock(mutex);
            frames.push_back(milliseconds(frame));
        },
        Qt::DirectConnection);
    int tallies = 0;
    QTimer somebody;
    somebody.setTimerType(Qt::PreciseTimer);
    QElapsedTimer elapsed;
    elapsed.start();
    QObject::connect(&somebody, &QTimer::timeout, &somebody, [&] {
        for (; tallies < elapsed.elapsed(); ++tallies)
            studio.driver<bench::BurstDriver>().tally((tallies * 7) % ports, (tallies * 3) % ports);
    });
    somebody.start(1ms);
    bench::Heartbeat heartbeat;
    QTimer::singleShot(watched, QCoreApplication::instance(), &QCoreApplication::quit);
    QCoreApplication::exec();
    bench::printRow(isSheetOpen ? "  sheet open, 1,000 tallies a second: main thread held, longest"
                                : "  without the sheet: main thread held, longest",
        heartbeat.longestMilliseconds(), "ms", isSheetOpen ? "<= 8" : "");
    observer.reset();
    const std::lock_guard lock(mutex);
    bench::printRow("  tallies that came", tallies / static_cast<double>(watched.count()), "/s");
    if (frames.empty())
        return;
    bench::printRow(
        "  frames", static_cast<double>(frames.size()) / static_cast<double>(watched.count()), "/s");
    bench::printRow("  frame, median", bench::median(frames), "ms", "<= 16");
}

void measureFiring()
{
    const Videohub hub;
    ThreadQueue thread(u"bench.driver"_s);
    {
        Studio studio([&](SerialQueue& mainQueue) {
            RouterConnection router;
            router.host = u"127.0.0.1"_s;
            router.port = hub.port();
            return std::make_shared<CountingDriver>(mainQueue, thread, router);
        });
        studio.workspace().setShowingSalvos(true);
        studio.window().grabWindow();
        auto& dialogs = *studio.workspace().salvoSheet()->dialogs();
        std::vector<double> times;
        std::vector<double> presses;
        for (int fire = 0; fire < fires; ++fire) {
            dialogs.setFiring(studio.controller().salvos().at(fire));
            studio.window().grabWindow();
            const auto& driver = studio.driver<CountingDriver>();
            const int sent = driver.sent;
            const auto pressed = std::chrono::steady_clock::now();
            QElapsedTimer timer;
            timer.start();
            dialogs.fire();
            presses.push_back(milliseconds(timer));
            bench::pumpUntil([&] { return driver.sent > sent; });
            times.push_back(std::chrono::duration<double, std::milli>(driver.sentAt - pressed).count());
            bench::pumpUntil([&] { return !studio.controller().firingProgress(); });
        }
        bench::printRow("  press on Fire to the last byte at the socket, 1,024 routes", bench::median(times),
            "ms", "<= 5");
        bench::printRow("    of this, the press itself", bench::median(presses), "ms");
        studio.controller().disconnect();
        QCoreApplication::processEvents();
    }
    thread.end();
}

int measure(const std::string& renderer)
{
    Fonts::load();
    {
        Studio studio(
            [](SerialQueue&) { return std::make_shared<bench::BurstDriver>(bench::largeState(ports)); });
        measureOpening(renderer, studio);
        measureTallies(studio, true);
        measureTallies(studio, false);
    }
    measureFiring();
    return 0;
}

int measureAll(const QString& program)
{
    for (const auto& renderer : {u"raster"_s, u"OpenGL"_s}) {
        QProcess process;
        auto environment = QProcessEnvironment::systemEnvironment();
        if (renderer == u"raster"_s)
            environment.insert(u"QT_QUICK_BACKEND"_s, u"software"_s);
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::ForwardedChannels);
        process.start(program, {renderer});
        process.waitForFinished(-1);
    }
    return 0;
}

} // namespace

} // namespace corvane

int main(int argc, char** argv)
{
    if (argc < 2) {
        const QCoreApplication application(argc, argv);
        return corvane::measureAll(QCoreApplication::applicationFilePath());
    }
    const QGuiApplication application(argc, argv);
    return corvane::measure(argv[1]);
}
