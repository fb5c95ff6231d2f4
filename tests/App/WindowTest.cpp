#include "WindowTest.h"

#include "Drivers/Simulator/SimulatorDriver.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QSettings>
#include <QtTest/QTest>

namespace corvane {

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

namespace {

constexpr auto savedRouters = R"([
    {"name":"Demo Router","vendor":"simulator"},
    {"name":"Studio Videohub","vendor":"blackmagicVideohub","host":"192.168.1.50","port":9990},
    {"name":"Ultrix Main","vendor":"rossUltrix","host":"192.168.1.60","port":2000},
    {"name":"KUMO Stage","vendor":"ajaKumo","host":"192.168.1.64","port":80},
    {"name":"MX2 Conference","vendor":"lightware","host":"192.168.1.72","port":6107}])";

/// Beyond this, the selection is left to the operator.
constexpr auto launch = 16s;

/// Everything that can be seen, from the top down.
void collect(QAccessibleInterface* interface, QList<QAccessibleInterface*>& found)
{
    if (!interface || interface->state().invisible)
        return;
    found.append(interface);
    for (int i = 0; i < interface->childCount(); ++i)
        collect(interface->child(i), found);
}

QList<QAccessibleInterface*> everythingIn(QObject* window)
{
    QList<QAccessibleInterface*> found;
    collect(QAccessible::queryAccessibleInterface(window), found);
    return found;
}

} // namespace

void SteppedAnimations::step(std::chrono::milliseconds duration)
{
    m_elapsed += duration.count();
    advanceAnimation();
}

void WindowTest::SetUp()
{
    wear(Appearance::light);
    // The operator's preferences stay out of it.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
    writeFile(m_folder.path(u"connections.json"_s), savedRouters);
    store = std::make_unique<ConnectionStore>(
        queue, [this](const RouterConnection& router) { return makeDriver(router); }, m_folder.path());
    window = std::make_unique<MainWindow>(queue, *store);
    QObject::connect(window->engine(), &QQmlEngine::warnings, window.get(),
        [](const QList<QQmlError>& errors) { ADD_FAILURE() << errors.first().toString().toStdString(); });
    window->show();
    window->requestActivate();
    queue.advance(launch);
    report(u"Studio Videohub"_s, driverEvent::Connected{});
    report(u"Ultrix Main"_s, driverEvent::Disconnected{});
    report(u"KUMO Stage"_s, driverEvent::Connected{});
    report(u"MX2 Conference"_s, driverEvent::Error{u"Connection refused"_s});
    settle();
}

void WindowTest::TearDown()
{
    window.reset();
    store.reset();
    queue.runReady();
    QGuiApplication::setPalette(m_paletteBefore);
}

std::shared_ptr<RouterDriver> WindowTest::makeDriver(const RouterConnection& router)
{
    if (router.vendor == RouterVendor::simulator)
        return std::make_shared<SimulatorDriver>(router, queue);
    return m_drivers[router.id] = std::make_shared<FakeDriver>();
}

RouterConnection WindowTest::router(const QString& name) const
{
    const auto& routers = store->connections();
    return *std::ranges::find(routers, name, &RouterConnection::name);
}

MatrixController& WindowTest::controller(const QString& name) const
{
    return store->controller(router(name));
}

void WindowTest::report(const QString& name, RouterDriverEvent event)
{
    m_drivers.value(router(name).id)->report(std::move(event));
    queue.runReady();
}

void WindowTest::wear(Appearance appearance)
{
    const bool isDark = appearance == Appearance::dark;
    QPalette palette;
    palette.setColor(QPalette::Window, isDark ? Qt::black : Qt::white);
    palette.setColor(QPalette::WindowText, isDark ? Qt::white : Qt::black);
    QGuiApplication::setPalette(palette);
    QCoreApplication::processEvents();
}

void WindowTest::settle()
{
    // Longer than the longest spring.
    constexpr int steps = 25;
    for (int i = 0; i < steps; ++i) {
        queue.runReady();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_animations.step(100ms);
        (void)window->grabWindow();
    }
}

void WindowTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(window.get(), key, modifiers);
    settle();
}

void WindowTest::click(Qt::MouseButton button, const QAccessibleInterface& on)
{
    QTest::mouseClick(window.get(), button, {}, window->mapFromGlobal(on.rect().center()));
    settle();
}

QList<QAccessibleInterface*> WindowTest::findAll(QAccessible::Role role) const
{
    auto found = everythingIn(window.get());
    found.removeIf([role](const QAccessibleInterface* interface) { return interface->role() != role; });
    return found;
}

QAccessibleInterface* WindowTest::find(QAccessible::Role role) const
{
    return findAll(role).value(0);
}

QAccessibleInterface* WindowTest::find(QAccessible::Role role, const QString& name) const
{
    auto found = findAll(role);
    found.removeIf(
        [&](const QAccessibleInterface* interface) { return interface->text(QAccessible::Name) != name; });
    return found.value(0);
}

QAccessibleInterface* WindowTest::focused() const
{
    auto* const interface = QAccessible::queryAccessibleInterface(window->activeFocusItem());
    // Of a list, the row that has the keyboard.
    const bool isList = interface && interface->role() == QAccessible::List;
    return isList && interface->focusChild() ? interface->focusChild() : interface;
}

void WindowTest::act(QAccessibleInterface* on, const QString& action)
{
    ASSERT_NE(on, nullptr) << "Nothing there to " << action.toStdString();
    on->actionInterface()->doAction(action);
    settle();
}

} // namespace corvane
