#pragma once

#include "Foundation/SerialQueue.h"

#include <QString>

#include <memory>

class QThread;

namespace corvane {

/// A queue that runs on a thread's Qt event loop, so that sockets and timers of Qt may live on it too.
///
/// Functions are handed over under a mutex of our own; Qt is only used to wake the thread. Each turn runs
/// what was queued when it began and then returns to the event loop, so a function that queues itself again
/// and again cannot starve input or sockets.
///
/// A queue that has ended stays usable: it drops what it is given at once, and runs nothing.
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
    /// Drops what is still queued.
    ~EventLoopQueue() override;

    /// Ends the queue: runs what is queued and what that queues, and drops what waits for its time. Call on
    /// the queue, outside its turns.
    void runOut();

private:
    class Turn;
    std::unique_ptr<Turn> m_turn;
};

/// The thread that constructs it, which is the main thread in the application.
class MainQueue final : public EventLoopQueue {
public:
    MainQueue();

    /// Runs what is queued, and what that queues, and ends. For a program whose event loop is over: nothing
    /// that a function refers to may be gone yet.
    void end() { runOut(); }
};

/// A thread of its own, started at construction.
class ThreadQueue final : public EventLoopQueue {
public:
    /// `label` names the thread in debuggers and crash reports.
    explicit ThreadQueue(const QString& label);
    ~ThreadQueue() override;

    /// Lets everything already queued run, and what that queues, then ends the thread; what is still waiting
    /// for its time is dropped. The destructor calls it. Not on the queue itself. Safe to repeat.
    void end();

private:
    class LoopThread;
    ThreadQueue(std::unique_ptr<LoopThread> thread, const QString& label);
    std::unique_ptr<LoopThread> m_thread;
};

} // namespace corvane
