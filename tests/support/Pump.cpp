#include "support/Pump.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

namespace corvane {

namespace {

void turn(std::initializer_list<ManualQueue*> queues)
{
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (auto* const queue : queues)
        queue->runReady();
}

} // namespace

bool pumpUntil(const std::function<bool()>& condition, std::initializer_list<ManualQueue*> queues)
{
    const QDeadlineTimer deadline(std::chrono::seconds(30));
    // Wakes the event loop where only another thread's progress is awaited.
    QTimer heartbeat;
    heartbeat.start(std::chrono::milliseconds(1));
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        for (auto* const queue : queues)
            queue->runReady();
        if (condition())
            return true;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        turn(queues);
    }
    return true;
}

void pumpUntilIdle(std::initializer_list<ManualQueue*> queues)
{
    constexpr int turnsForLoopbackToSettle = 50;
    for (int i = 0; i < turnsForLoopbackToSettle; ++i)
        turn(queues);
}

} // namespace corvane
