#pragma once

#include "Controllers/RoutingRules.h"
#include "Views/CrosspointGridModel.h"
#include "Views/PortActions.h"

#include <optional>

namespace corvane {

/// What gestures at the places of the grid ask of the controller. Does nothing while the grid has none.
class GridActions {
public:
    explicit GridActions(const CrosspointGridModel& model);

    /// A new gesture begins: what a double click would put back belongs to an earlier one.
    void beginGesture() { m_beforeClick.reset(); }
    /// A cell routes, or stages in confirm mode; a row header aims; a column header does nothing.
    void click(GridPlace place);
    /// Renames at headers, and leaves what the click before it staged as it was: the double click is one
    /// gesture.
    void doubleClick(GridPlace place);
    void perform(PortAction::Kind kind, GridPlace place);
    /// Takes what is staged.
    void take();

    [[nodiscard]] QList<PortAction> menu(GridPlace place) const;
    /// The named actions for screen readers, besides the press.
    [[nodiscard]] QList<PortAction> accessibleActions(GridPlace place) const;

private:
    void routeOrStage(qint64 source, qint64 destination);
    void aim(qint64 destination);
    [[nodiscard]] Staging staging() const;
    void stage(const Staging& staging);
    [[nodiscard]] PortRef portAt(GridPlace place) const;
    [[nodiscard]] qint64 sourceAt(GridPlace place) const { return m_model.sources().at(place.column).index; }
    [[nodiscard]] qint64 destinationAt(GridPlace place) const
    {
        return m_model.destinations().at(place.row).index;
    }
    [[nodiscard]] MatrixController* controller() const { return m_model.controller(); }

    const CrosspointGridModel& m_model;
    std::optional<Staging> m_beforeClick;
};

} // namespace corvane
