#pragma once

#include "Foundation/SerialQueue.h"

#include <QString>

#include <memory>

class QThread;

namespace corvane {

/// A queue that runs on a thread's Qt event loop, so that sockets and timers of Qt may live on it too.
///
/// Functions are handed over under a mutex of our own; Qt is only used to wake the thread. Each turn runs
/// what was queued when it began and then gives the event loop its chance, so a function that queues itself
/// again and again cannot starve input or sockets.
class EventLoopQueue : public SerialQueue {
public:
    void async(Function function) override;
    WorkItem after(Duration delay, Function function) override;
    Instant now() const override;
    bool isCurrent() const override;

protected:
    /// `thread` must run a Qt event loop for anything to happen. The queue must be destroyed on that thread,
    /// or after that thread has ended.
    explicit EventLoopQueue(QThread& thread);
    ~EventLoopQueue() override;

    /// Call on the queue, before its thread ends: from here on nothing waits for its time.
    void dropWaiting();

private:
    class Turn;
    std::unique_ptr<Turn> m_turn;
};

/// The thread that constructs it, which is the main thread in the application.
class MainQueue final : public EventLoopQueue {
public:
    MainQueue();
};

/// A thread of its own, started at construction. The destructor lets everything already queued run,
/// then ends the thread; what is still waiting for its time is dropped.
///
/// The thread ends with the application object at the latest, for Qt's event loops don't outlive it: a queue
/// that is kept in a static variable ends while it still can. Nothing may be left by then that waits for the
/// queue.
class ThreadQueue final : public EventLoopQueue {
public:
    /// `label` names the thread in debuggers and crash reports.
    explicit ThreadQueue(const QString& label);
    ~ThreadQueue() override;

private:
    class Living;
    void end();

    class LoopThread;
    ThreadQueue(std::unique_ptr<LoopThread> thread, const QString& label);
    std::unique_ptr<LoopThread> m_thread;
};

} // namespace corvane
