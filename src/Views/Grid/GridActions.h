#pragma once

#include "Controllers/RoutingRules.h"
#include "Views/Grid/GridPlace.h"
#include "Views/Shared/PortActions.h"

#include <optional>

namespace corvane {

class CrosspointGridModel;

/// What gestures at the places of the grid mean to the controller. Does nothing while the grid has none.
class GridActions {
public:
    explicit GridActions(const CrosspointGridModel& model);

    /// A new gesture begins: a double click puts back nothing that an earlier one changed.
    void beginGesture() { m_beforeClick.reset(); }
    /// A cell routes, or stages in confirm mode; a row header stages its destination; a column header does
    /// nothing.
    void click(GridPlace place);
    /// Renames at headers, and puts back what the click before it staged: the double click is one gesture.
    void doubleClick(GridPlace place);
    void rename(GridPlace place);
    /// Of the destination of a row header or cell; does nothing for a source.
    void toggleLock(GridPlace place);

    [[nodiscard]] QList<MenuAction> menu(GridPlace place) const;
    /// The named actions for screen readers, besides the press.
    [[nodiscard]] QList<MenuAction> accessibleActions(GridPlace place);

private:
    void routeOrStage(qint64 source, qint64 destination);
    void routeToSelectedDestination(GridPlace place);
    void stageDestination(qint64 destination);
    [[nodiscard]] Staging staging() const;
    void stage(const Staging& staging);
    [[nodiscard]] PortRef portAt(GridPlace place) const;
    [[nodiscard]] qint64 sourceAt(GridPlace place) const;
    [[nodiscard]] qint64 destinationAt(GridPlace place) const;
    [[nodiscard]] MatrixController* controller() const;

    const CrosspointGridModel& m_model;
    std::optional<Staging> m_beforeClick;
};

} // namespace corvane
