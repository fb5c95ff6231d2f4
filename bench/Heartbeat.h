#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>
#include <chrono>

namespace corvane::bench {

/// Fires once a millisecond and notes the longest gap between two: how long the event loop was kept from it.
class Heartbeat {
public:
    Heartbeat()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            m_longest = std::max(m_longest, m_sinceLast.nsecsElapsed());
            m_sinceLast.start();
        });
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.start(std::chrono::milliseconds(1));
        m_sinceLast.start();
    }

    double longestMilliseconds() const { return static_cast<double>(m_longest) / 1e6; }

private:
    QTimer m_timer;
    QElapsedTimer m_sinceLast;
    qint64 m_longest = 0;
};

} // namespace corvane::bench
