#pragma once

#include "Controllers/MatrixController.h"

#include <vector>

namespace corvane {

/// One operation on a controller: no signal is emitted while it lasts, and at its end each signal is emitted
/// at most once, if what it tells of is different. One inside another belongs to the outermost.
class MatrixController::Change {
public:
    explicit Change(MatrixController& controller);
    Change(const Change&) = delete;
    Change& operator=(const Change&) = delete;
    ~Change();

    /// What else to emit at the end, before the rest.
    void note(std::function<void()> emitSignal)
    {
        m_controller.m_change->m_notes.push_back(std::move(emitSignal));
    }

private:
    struct Before {
        OperatorState operatorState;
        Observed observed;
        QString renameDraft;
        VisiblePorts visiblePorts;
        std::optional<QUuid> activePanelID;
        std::optional<SubPanel> activePanel;
        QList<qint64> lockedPendingDestinations;
    };

    void emitDifferences() const;

    MatrixController& m_controller;
    /// Absent in an inner change.
    std::optional<Before> m_before;
    std::vector<std::function<void()>> m_notes;
};

} // namespace corvane
