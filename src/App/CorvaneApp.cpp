#include "App/CorvaneApp.h"

#include "App/MainWindow.h"
#include "Drivers/DriverFactory.h"
#include "Foundation/DataFolder.h"
#include "Foundation/EventLoopQueue.h"
#include "Theme/Fonts.h"

#include <QGuiApplication>

namespace corvane {

CorvaneApp::CorvaneApp() : m_lock(dataFolder()) { }

int CorvaneApp::run()
{
    if (m_lock.claim() == ProfileLock::Role::latecomer)
        return m_lock.askOwnerToComeForward() ? EXIT_SUCCESS : EXIT_FAILURE;
    Fonts::load();
    MainQueue mainQueue;
    const auto makeDriver = [&mainQueue](const RouterConnection& connection) {
        return DriverFactory::makeDriver(connection, mainQueue);
    };
    ConnectionStore store(mainQueue, makeDriver, dataFolder());
    MainWindow window(mainQueue, store);
    QObject::connect(&m_lock, &ProfileLock::cameAnother, &window, &MainWindow::comeForward);
    window.show();
    return QGuiApplication::exec();
}

} // namespace corvane
