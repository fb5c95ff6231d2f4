#pragma once

#include "Controllers/MatrixController.h"

#include <QPointer>

namespace corvane {

/// Sees to it that nothing stays of the first click of a double click.
///
/// A click that would put a route on air is held until it is known to be a single one, for the system's
/// double-click interval but at most `longestHold`; it then does what was meant when it was made. Every other
/// click acts at once and is put back. Both panes share one: whatever comes next lets a held click act first.
/// Main thread.
class PaneClicks : public QObject {
    Q_OBJECT

public:
    static constexpr Duration longestHold = std::chrono::milliseconds(250);

    /// `queue` must be the main one and outlive the object.
    explicit PaneClicks(SerialQueue& queue);
    ~PaneClicks() override;

    /// The port whose click is held.
    [[nodiscard]] const std::optional<PortRef>& held() const { return m_held; }

    /// A click at `port` that routes `source` to `destinations`.
    void hold(
        MatrixController& controller, const PortRef& port, qint64 source, const QList<qint64>& destinations);
    /// A click at `port` that does no more than select or stage.
    void act(MatrixController& controller, const PortRef& port, const std::function<void()>& click);
    /// The second click of a double click at `port`. False if the first one can no longer be taken back.
    [[nodiscard]] bool takeBack(const PortRef& port);
    /// Lets a held click act, and makes what was done so far stay.
    void settle();

signals:
    void heldChanged(const corvane::PortRef& port);

private:
    void setHeld(const std::optional<PortRef>& port);

    SerialQueue& m_queue;
    QPointer<MatrixController> m_controller;
    std::optional<PortRef> m_held;
    std::function<void()> m_heldRoute;
    WorkItem m_wait;
    /// What the last click at `port` changed.
    struct Trace {
        PortRef port;
        Aim before;
        Aim after;
    };
    std::optional<Trace> m_trace;
};

} // namespace corvane
