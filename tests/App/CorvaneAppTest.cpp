#include "App/CorvaneApp.h"
#include "emulator/KumoEmulator.h"
#include "emulator/LW3Emulator.h"
#include "emulator/QuartzEmulator.h"
#include "emulator/SWP08Emulator.h"
#include "emulator/VideohubEmulator.h"
#include "support/Files.h"
#include "support/Pump.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QSettings>
#include <QTimer>
#include <QWindow>

#include <gmock/gmock.h>

#include <array>
#include <cerrno>
#include <csignal>

#include <unistd.h>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using emulator::EmulatorServer;

/// The program on a profile of its own.
class CorvaneAppTest : public testing::Test {
protected:
    void SetUp() override
    {
        qputenv("XDG_DATA_HOME", m_data.path().toUtf8());
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_data.path());
    }
    void TearDown() override { qunsetenv("XDG_DATA_HOME"); }

    [[nodiscard]] QString folder() const { return m_data.path(u"Corvane"_s); }

    /// Runs the program and closes its window as soon as `isTime`.
    static int runUntil(CorvaneApp& app, const std::function<bool()>& isTime)
    {
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, [&] {
            if (isTime())
                QGuiApplication::topLevelWindows().constFirst()->close();
        });
        look.start(1ms);
        return app.run();
    }

private:
    TemporaryFolder m_data;
};

QByteArray savedRouter(const QByteArray& vendor, quint16 port)
{
    return R"({"name":"A","vendor":")" + vendor + R"(","host":"127.0.0.1","port":)" + QByteArray::number(port)
        + "}";
}

TEST_F(CorvaneAppTest, ClosesWithARouterOfEachFamilyThatIsLiveAndOneThatIsBeingTried)
{
    emulator::EmulatedMatrix matrix(8, 8);
    emulator::VideohubEmulator videohub(matrix);
    emulator::SWP08Emulator swp08(matrix);
    emulator::QuartzEmulator quartz(matrix);
    emulator::LW3Emulator lw3(matrix);
    emulator::KumoEmulator kumo(matrix);
    emulator::QuartzEmulator absent(matrix);
    absent.stopListening();
    const std::array<EmulatorServer*, 5> routers{&videohub, &swp08, &quartz, &lw3, &kumo};
    QDir().mkpath(folder());
    writeFile(folder() + u"/connections.json"_s,
        "[" + savedRouter("blackmagicVideohub", videohub.port()) + ','
            + savedRouter("rossUltrix", swp08.port()) + ',' + savedRouter("evertzQuartz", quartz.port()) + ','
            + savedRouter("lightware", lw3.port()) + ',' + savedRouter("ajaKumo", kumo.port()) + ','
            + savedRouter("evertzQuartz", absent.port()) + "]");
    CorvaneApp app;
    const auto everyoneIsThere = [&] {
        return std::ranges::all_of(routers, [](const auto* router) { return router->clientCount() > 0; });
    };
    EXPECT_EQ(runUntil(app, everyoneIsThere), EXIT_SUCCESS);
    EXPECT_TRUE(pumpUntil([&] {
        return std::ranges::all_of(routers, [](const auto* router) { return router->clientCount() == 0; });
    }));
}

TEST_F(CorvaneAppTest, SaysInAWindowAndOnStandardErrorThatTheFirstCopyDoesNotAnswer)
{
    // Of this very thread, which is kept from its event loop while the program waits for an answer.
    ProfileLock first(folder());
    ASSERT_EQ(first.claim(0ms), ProfileLock::Claim(ProfileLock::Owned{}));
    const auto text = u"A copy of Corvane is already running (process %1) but doesn't answer."
                      " End it, then start Corvane again."_s.arg(::getpid());
    QString heading;
    QString description;
    testing::internal::CaptureStderr();
    CorvaneApp app(0ms);
    const auto read = [&] {
        const auto* const window =
            QAccessible::queryAccessibleInterface(QGuiApplication::topLevelWindows().constFirst());
        const auto* const notice = window ? window->child(0) : nullptr;
        if (!notice)
            return false;
        heading = notice->text(QAccessible::Name);
        description = notice->text(QAccessible::Description);
        return true;
    };
    EXPECT_EQ(runUntil(app, read), EXIT_FAILURE);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), text.toStdString() + '\n');
    EXPECT_EQ(heading, u"Corvane Doesn't Answer"_s);
    EXPECT_EQ(description, text);
}

TEST_F(CorvaneAppTest, OutlivesWhoeverReadsWhatItPrints)
{
    std::signal(SIGPIPE, SIG_DFL);
    const CorvaneApp app;
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    ::close(pipe[0]);
    EXPECT_EQ(::write(pipe[1], "x", 1), -1);
    EXPECT_EQ(errno, EPIPE);
    ::close(pipe[1]);
}

} // namespace

} // namespace corvane
