#include "Foundation/EventLoopQueue.h"

#include <QBasicTimer>
#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QThread>
#include <QTimerEvent>

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <utility>

namespace corvane {

/// Lives on the queue's thread; only `add` and `addAt` are called from others.
class EventLoopQueue::Turn final : public QObject {
public:
    explicit Turn(QThread& thread) { moveToThread(&thread); }

    /// A function that comes too late is destroyed on return, outside the lock: it may hold anything.
    void add(Function function)
    {
        std::unique_ptr<QEvent> wake;
        {
            const std::lock_guard lock(m_mutex);
            if (m_phase == Phase::over)
                return;
            m_ready.push_back(std::move(function));
            wake = wakeEventLocked();
        }
        post(std::move(wake));
    }

    void addAt(Instant deadline, WorkItem item)
    {
        std::unique_ptr<QEvent> wake;
        {
            const std::lock_guard lock(m_mutex);
            if (m_phase != Phase::running)
                return;
            const auto position = m_waiting.emplace(deadline, std::move(item));
            if (position == m_waiting.begin())
                wake = wakeEventLocked();
        }
        post(std::move(wake));
    }

    /// The timer is stopped here because that must happen on the thread that it runs on.
    void runOut()
    {
        dropWaiting();
        m_timer.stop();
        for (auto ready = takeReadyOrEnd(); !ready.empty(); ready = takeReadyOrEnd())
            runAll(ready);
    }

    void drop()
    {
        dropWaiting();
        std::deque<Function> dropped;
        const std::lock_guard lock(m_mutex);
        m_phase = Phase::over;
        std::swap(dropped, m_ready);
    }

protected:
    void customEvent(QEvent*) override { run(); }
    void timerEvent(QTimerEvent*) override { run(); }

private:
    enum class Phase { running, runningOut, over };

    /// Made under our mutex, which the receiver takes first of all: so even the event itself is handed over
    /// in a way that a thread checker can follow.
    std::unique_ptr<QEvent> wakeEventLocked()
    {
        return std::exchange(m_wakePosted, true) ? nullptr : std::make_unique<QEvent>(QEvent::User);
    }

    void post(std::unique_ptr<QEvent> wake)
    {
        if (wake)
            QCoreApplication::postEvent(this, wake.release());
    }

    void dropWaiting()
    {
        std::multimap<Instant, WorkItem> dropped;
        const std::lock_guard lock(m_mutex);
        m_phase = Phase::runningOut;
        std::swap(dropped, m_waiting);
    }

    /// Nothing can come between finding the queue empty and its end.
    std::deque<Function> takeReadyOrEnd()
    {
        const std::lock_guard lock(m_mutex);
        if (m_ready.empty())
            m_phase = Phase::over;
        return std::exchange(m_ready, {});
    }

    static void runAll(std::deque<Function>& functions)
    {
        for (auto& function : functions)
            function();
    }

    void run()
    {
        std::deque<Function> ready;
        std::deque<WorkItem> due;
        {
            const std::lock_guard lock(m_mutex);
            m_wakePosted = false;
            std::swap(ready, m_ready);
            const auto end = m_waiting.upper_bound(std::chrono::steady_clock::now());
            for (auto item = m_waiting.begin(); item != end; ++item)
                due.push_back(std::move(item->second));
            m_waiting.erase(m_waiting.begin(), end);
        }
        runAll(ready);
        for (auto& item : due)
            item.perform();
        armTimer();
    }

    void armTimer()
    {
        const std::lock_guard lock(m_mutex);
        if (m_waiting.empty()) {
            m_timer.stop();
            return;
        }
        const Duration left = m_waiting.begin()->first - std::chrono::steady_clock::now();
        const auto wait =
            std::chrono::ceil<std::chrono::milliseconds>(std::clamp(left, Duration::zero(), longestWait));
        m_timer.start(static_cast<int>(wait.count()), Qt::PreciseTimer, this);
    }

    // Qt counts a timer's milliseconds in an int; a longer wait is simply looked at again in between.
    static constexpr Duration longestWait = std::chrono::hours(1);

    std::mutex m_mutex;
    std::deque<Function> m_ready;
    std::multimap<Instant, WorkItem> m_waiting;
    bool m_wakePosted = false;
    Phase m_phase = Phase::running;
    QBasicTimer m_timer;
};

EventLoopQueue::EventLoopQueue(QThread& thread) : m_turn(std::make_unique<Turn>(thread)) { }

EventLoopQueue::~EventLoopQueue()
{
    m_turn->drop();
}

void EventLoopQueue::async(Function function)
{
    m_turn->add(std::move(function));
}

WorkItem EventLoopQueue::after(Duration delay, Function function)
{
    WorkItem item(std::move(function));
    m_turn->addAt(now() + delay, item);
    return item;
}

Instant EventLoopQueue::now() const
{
    return std::chrono::steady_clock::now();
}

bool EventLoopQueue::isCurrent() const
{
    return QThread::currentThread() == m_turn->thread();
}

void EventLoopQueue::runOut()
{
    m_turn->runOut();
}

MainQueue::MainQueue() : EventLoopQueue(*QThread::currentThread()) { }

/// A thread with an event loop whose end is handed over under a mutex of our own, as everything else is.
class ThreadQueue::LoopThread final : public QThread {
public:
    /// Set before the thread starts: what it does last.
    std::function<void()> atEnd;

    void end()
    {
        quit();
        std::unique_lock lock(m_mutex);
        m_ended.wait(lock, [this] { return m_hasEnded; });
        lock.unlock();
        wait();
    }

protected:
    void run() override
    {
        exec();
        atEnd();
        const std::lock_guard lock(m_mutex);
        m_hasEnded = true;
        m_ended.notify_one();
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_ended;
    bool m_hasEnded = false;
};

ThreadQueue::ThreadQueue(const QString& label) : ThreadQueue(std::make_unique<LoopThread>(), label) { }

ThreadQueue::ThreadQueue(std::unique_ptr<LoopThread> thread, const QString& label)
    : EventLoopQueue(*thread), m_thread(std::move(thread))
{
    m_thread->setObjectName(label);
    m_thread->atEnd = [this] { runOut(); };
    m_thread->start();
}

ThreadQueue::~ThreadQueue()
{
    end();
}

void ThreadQueue::end()
{
    Q_ASSERT(!isCurrent());
    m_thread->end();
}

} // namespace corvane
