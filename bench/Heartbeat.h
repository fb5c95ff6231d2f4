#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>

namespace corvane::bench {

/// Fires on every turn of the event loop and notes the longest gap between two.
class Heartbeat {
public:
    Heartbeat()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            m_longest = std::max(m_longest, m_sinceLast.nsecsElapsed());
            m_sinceLast.start();
        });
        m_timer.start(0);
        m_sinceLast.start();
    }

    double longestMilliseconds() const { return static_cast<double>(m_longest) / 1e6; }

private:
    QTimer m_timer;
    QElapsedTimer m_sinceLast;
    qint64 m_longest = 0;
};

} // namespace corvane::bench
