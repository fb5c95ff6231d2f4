#include "emulator/ProcessLifetime.h"

#include <QCoreApplication>
#include <QObject>

#include <array>

#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>

namespace corvane::emulator {

std::unique_ptr<QSocketNotifier> quitOnTermination()
{
    sigset_t handled;
    sigemptyset(&handled);
    sigaddset(&handled, SIGTERM);
    sigaddset(&handled, SIGINT);
    const int descriptor = signalfd(-1, &handled, SFD_CLOEXEC);
    if (descriptor < 0)
        return nullptr;
    pthread_sigmask(SIG_BLOCK, &handled, nullptr);
    auto notifier = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    QObject::connect(
        notifier.get(), &QSocketNotifier::activated, QCoreApplication::instance(), &QCoreApplication::quit);
    QObject::connect(notifier.get(), &QObject::destroyed, [descriptor] { close(descriptor); });
    return notifier;
}

std::unique_ptr<QSocketNotifier> quitWhenStandardInputCloses()
{
    auto notifier = std::make_unique<QSocketNotifier>(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(
        notifier.get(), &QSocketNotifier::activated, notifier.get(), [notifier = notifier.get()] {
            std::array<char, 4096> ignored;
            if (read(STDIN_FILENO, ignored.data(), ignored.size()) > 0)
                return;
            notifier->setEnabled(false);
            QCoreApplication::quit();
        });
    return notifier;
}

} // namespace corvane::emulator
