#include "WindowTest.h"
#include "support/Pump.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QProcess>
#include <QStandardPaths>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

constexpr auto sessionBus = "DBUS_SESSION_BUS_ADDRESS";

/// The desktop's answers about its colour scheme: 0 no preference, 1 dark, 2 light.
class Portal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    Portal(const QString& address) : m_bus(QDBusConnection::connectToBus(address, u"portal"_s))
    {
        m_bus.registerObject(u"/org/freedesktop/portal/desktop"_s, this,
            QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
        isThere = m_bus.registerService(u"org.freedesktop.portal.Desktop"_s);
    }
    ~Portal() override { QDBusConnection::disconnectFromBus(u"portal"_s); }

    bool isThere = false;
    bool wasAsked = false;
    uint scheme = 2;

    void change(uint to)
    {
        scheme = to;
        emit SettingChanged(u"org.freedesktop.appearance"_s, u"color-scheme"_s, QDBusVariant(scheme));
    }

public slots:
    QDBusVariant Read(const QString&, const QString&)
    {
        wasAsked = true;
        return QDBusVariant(QVariant::fromValue(QDBusVariant(scheme)));
    }

signals:
    void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    QDBusConnection m_bus;
};

/// A bus and a desktop of the test's own.
class DesktopSchemeTest : public WindowTest {
protected:
    void SetUp() override
    {
        const auto daemon = QStandardPaths::findExecutable(u"dbus-daemon"_s);
        if (daemon.isEmpty())
            GTEST_SKIP() << "there is no dbus-daemon to play the desktop's bus";
        m_bus.start(daemon,
            {u"--session"_s, u"--nofork"_s, u"--print-address"_s,
                u"--address=unix:dir=%1"_s.arg(m_busFolder.path())});
        if (!pumpUntil([this] { return m_bus.canReadLine() || m_bus.state() == QProcess::NotRunning; })
            || !m_bus.canReadLine())
            GTEST_SKIP() << "dbus-daemon doesn't run here: " << m_bus.readAllStandardError().toStdString();
        const auto address = m_bus.readLine().trimmed();
        portal = std::make_unique<Portal>(QString::fromUtf8(address));
        ASSERT_TRUE(portal->isThere);
        qputenv(sessionBus, address);
        WindowTest::SetUp();
        ASSERT_TRUE(pumpUntil([this] { return portal->wasAsked; }));
        pumpUntilIdle();
    }

    void TearDown() override
    {
        if (store)
            WindowTest::TearDown();
        portal.reset();
        QDBusConnection::disconnectFromBus(u"qt_default_session_bus"_s);
        qunsetenv(sessionBus);
        m_bus.terminate();
        m_bus.waitForFinished();
    }

    [[nodiscard]] QImage screen()
    {
        settle();
        return window->grabWindow();
    }

    /// As the window comes up when the desktop is set so already.
    [[nodiscard]] QImage freshScreen()
    {
        portal->wasAsked = false;
        window.reset();
        window = std::make_unique<MainWindow>(queue, *store);
        window->show();
        window->requestActivate();
        EXPECT_TRUE(pumpUntil([this] { return portal->wasAsked; }));
        pumpUntilIdle();
        return screen();
    }

    std::unique_ptr<Portal> portal;

private:
    TemporaryFolder m_busFolder;
    QProcess m_bus;
};

TEST_F(DesktopSchemeTest, EveryPixelFollowsTheDesktopWhenItTurnsDarkOrLight)
{
    const auto looks = [&](const QImage& wanted) { return pumpUntil([&] { return screen() == wanted; }); };
    auto& demo = controller(u"Demo Router"_s);
    demo.setTakeMode(TakeMode::confirm);
    for (const auto view : {RouteViewMode::matrix, RouteViewMode::list}) {
        demo.setViewMode(view);
        const auto light = freshScreen();
        portal->change(1);
        ASSERT_TRUE(pumpUntil([&] { return screen() != light; }));
        const auto turned = screen();
        const auto dark = freshScreen();
        EXPECT_LT(dark.pixelColor(5, dark.height() - 5).lightness(), 60);
        EXPECT_EQ(turned, dark);
        portal->change(2);
        EXPECT_TRUE(looks(light));
    }
}

} // namespace

} // namespace corvane

#include "DesktopSchemeTest.moc"
