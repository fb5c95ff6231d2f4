#include "App/CorvaneApp.h"

#include "App/MainWindow.h"
#include "Drivers/DriverFactory.h"
#include "Foundation/DataFolder.h"
#include "Foundation/EventLoopQueue.h"
#include "Theme/Fonts.h"

#include <QGuiApplication>

#include <chrono>

namespace corvane {

namespace {

constexpr std::chrono::seconds patienceWithAnEndingCopy(5);

} // namespace

CorvaneApp::CorvaneApp() : m_lock(dataFolder()) { }

int CorvaneApp::run()
{
    const auto role = m_lock.claimOrCallOwner(patienceWithAnEndingCopy);
    if (role != ProfileLock::Role::owner)
        return role ? EXIT_SUCCESS : EXIT_FAILURE;
    Fonts::load();
    MainQueue mainQueue;
    const auto makeDriver = [&mainQueue](const RouterConnection& connection) {
        return DriverFactory::makeDriver(connection, mainQueue);
    };
    ConnectionStore store(mainQueue, makeDriver, dataFolder());
    MainWindow window(mainQueue, store);
    QObject::connect(&m_lock, &ProfileLock::cameAnother, &window, &MainWindow::comeForward);
    window.show();
    const int exitCode = QGuiApplication::exec();
    m_lock.stopListening();
    return exitCode;
}

} // namespace corvane
