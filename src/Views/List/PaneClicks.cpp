#include "Views/List/PaneClicks.h"

#include <QGuiApplication>
#include <QStyleHints>

namespace corvane {

namespace {

Duration holdTime()
{
    const std::chrono::milliseconds system(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    return std::min<Duration>(system, PaneClicks::longestHold);
}

} // namespace

PaneClicks::PaneClicks(SerialQueue& queue) : m_queue(queue) { }

PaneClicks::~PaneClicks()
{
    settle();
}

void PaneClicks::hold(
    MatrixController& controller, const PortRef& port, qint64 source, const QList<qint64>& destinations)
{
    settle();
    m_heldRoute = [controller = QPointer(&controller), source, destinations] {
        for (const auto destination : destinations)
            if (controller)
                controller->take(source, destination);
    };
    m_wait = m_queue.after(holdTime(), [this] { settle(); });
    setHeld(port);
}

void PaneClicks::act(MatrixController& controller, const PortRef& port, const std::function<void()>& click)
{
    settle();
    const auto before = controller.aim();
    click();
    m_controller = &controller;
    m_trace = Trace{port, before, controller.aim()};
}

bool PaneClicks::takeBack(const PortRef& port)
{
    if (m_held == port) {
        m_wait.cancel();
        m_heldRoute = nullptr;
        setHeld(std::nullopt);
        return true;
    }
    const auto trace = std::exchange(m_trace, std::nullopt);
    if (!trace || trace->port != port || !m_controller)
        return false;
    // What has changed since belongs to something else.
    if (m_controller->aim() == trace->after)
        m_controller->setAim(trace->before);
    return true;
}

void PaneClicks::settle()
{
    m_wait.cancel();
    m_trace.reset();
    const auto route = std::exchange(m_heldRoute, nullptr);
    setHeld(std::nullopt);
    if (route)
        route();
}

void PaneClicks::setHeld(const std::optional<PortRef>& port)
{
    const auto before = std::exchange(m_held, port);
    if (before == port)
        return;
    for (const auto& changed : {before, port})
        if (changed)
            emit heldChanged(*changed);
}

} // namespace corvane
