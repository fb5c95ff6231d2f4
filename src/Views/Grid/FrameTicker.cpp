#include "Views/Grid/FrameTicker.h"

#include <utility>

namespace corvane {

FrameTicker::FrameTicker(Tick tick) : m_tick(std::move(tick)) { }

void FrameTicker::keepRunning(bool isWanted)
{
    if (isWanted == (state() == Running))
        return;
    m_last = 0;
    if (isWanted)
        start();
    else
        stop();
}

void FrameTicker::updateCurrentTime(int milliseconds)
{
    const int passed = milliseconds - std::exchange(m_last, milliseconds);
    if (passed > 0)
        m_tick(passed / 1000.0);
}

} // namespace corvane
