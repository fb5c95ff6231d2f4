#pragma once

#include <QAbstractAnimation>

#include <functional>

namespace corvane {

/// Calls back once for each frame with the time that has passed, while it is kept running.
class FrameTicker final : public QAbstractAnimation {
public:
    using Tick = std::function<void(double seconds)>;

    explicit FrameTicker(Tick tick);
    [[nodiscard]] int duration() const override { return -1; }
    void keepRunning(bool isWanted);

protected:
    void updateCurrentTime(int milliseconds) override;

private:
    Tick m_tick;
    int m_last = 0;
};

} // namespace corvane
