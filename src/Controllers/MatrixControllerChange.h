#pragma once

#include "Controllers/MatrixController.h"

#include <vector>

namespace corvane {

/// One operation on a controller: while it lasts nobody is told anything, and at its end observers hear once
/// of each property that is really different. One inside another belongs to the outermost.
class MatrixController::Change {
public:
    explicit Change(MatrixController& controller);
    Change(const Change&) = delete;
    Change& operator=(const Change&) = delete;
    ~Change();

    /// What else to tell at the end, before the properties.
    void note(std::function<void()> tell) { m_controller.m_change->m_notes.push_back(std::move(tell)); }

private:
    struct Before {
        Observed observed;
        VisiblePorts visiblePorts;
        std::optional<SubPanel> activePanel;
    };

    void tellOf(const Before& before) const;
    void tellOfProperties(const Observed& before) const;

    MatrixController& m_controller;
    /// Absent in an inner change.
    std::optional<Before> m_before;
    std::vector<std::function<void()>> m_notes;
};

} // namespace corvane
