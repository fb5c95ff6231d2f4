#include "App/CorvaneApp.h"

#include "App/MainWindow.h"
#include "App/NoticeWindow.h"
#include "Drivers/DriverFactory.h"
#include "Foundation/DataFolder.h"
#include "Foundation/EventLoopQueue.h"
#include "Theme/Fonts.h"

#include <QGuiApplication>

#include <csignal>
#include <iostream>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// On standard error too: where no window can be shown, that is all there is.
int reportSilentOwner(const ProfileLock::OwnerSilent& owner)
{
    const auto process = owner.processID ? u" (process %1)"_s.arg(*owner.processID) : QString();
    const auto text =
        u"A copy of Corvane is already running%1 but doesn't answer. End it, then start Corvane again."_s.arg(
            process);
    std::cerr << text.toStdString() << '\n';
    NoticeWindow window(u"Corvane Doesn't Answer"_s, text);
    window.show();
    QGuiApplication::exec();
    return EXIT_FAILURE;
}

} // namespace

CorvaneApp::CorvaneApp(std::chrono::milliseconds patience) : m_patience(patience), m_lock(dataFolder())
{
    // Whoever reads what we print may be gone. That is an error of the one call, and no reason to die.
    std::signal(SIGPIPE, SIG_IGN);
}

int CorvaneApp::run()
{
    const auto claim = m_lock.claim(m_patience);
    if (std::holds_alternative<ProfileLock::OwnerAnswered>(claim))
        return EXIT_SUCCESS;
    Fonts::load();
    if (const auto* const silent = std::get_if<ProfileLock::OwnerSilent>(&claim))
        return reportSilentOwner(*silent);
    return runOnOwnFolder();
}

int CorvaneApp::runOnOwnFolder()
{
    MainQueue mainQueue;
    DriverFactory drivers(mainQueue);
    ConnectionStore store(
        mainQueue, [&](const auto& router) { return drivers.makeDriver(router); }, dataFolder());
    MainWindow window(mainQueue, store);
    QObject::connect(&m_lock, &ProfileLock::cameAnother, &window, &MainWindow::comeForward);
    window.show();
    const int exitCode = QGuiApplication::exec();
    m_lock.stopListening();
    drivers.abandonDrivers();
    // What is under way ends while all that it refers to is still there.
    mainQueue.end();
    return exitCode;
}

} // namespace corvane
