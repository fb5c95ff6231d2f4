#pragma once

#include "Controllers/RoutingRules.h"
#include "Views/CrosspointGridModel.h"

namespace corvane {

/// One thing that can be done at a place of the grid, by its menu or by a screen reader.
struct GridAction {
    enum class Kind { press, routeToSelectedDestination, renameSource, renameDestination, toggleLock };

    Kind kind = Kind::press;
    QString name;
    /// The theme's symbol for it in a menu.
    QString symbol;
    bool operator==(const GridAction&) const = default;
};

/// What gestures at the places of the grid ask of the controller. Does nothing while the grid has none.
class GridActions {
public:
    explicit GridActions(const CrosspointGridModel& model);

    /// A cell routes, or stages in confirm mode; a row header aims; a column header does nothing.
    void click(GridPlace place);
    /// Renames at headers, and leaves what the click before it staged as it was: the double click is one
    /// gesture.
    void doubleClick(GridPlace place);
    void perform(GridAction::Kind kind, GridPlace place);
    /// Takes what is staged.
    void take();

    [[nodiscard]] QList<GridAction> menu(GridPlace place) const;
    /// The named actions for screen readers, besides the press.
    [[nodiscard]] QList<GridAction> accessibleActions(GridPlace place) const;

private:
    void routeOrStage(qint64 source, qint64 destination);
    void aim(qint64 destination);
    void rename(GridPlace place);
    [[nodiscard]] Staging staging() const;
    void stage(const Staging& staging);
    [[nodiscard]] qint64 sourceAt(GridPlace place) const { return m_model.sources().at(place.column).index; }
    [[nodiscard]] qint64 destinationAt(GridPlace place) const
    {
        return m_model.destinations().at(place.row).index;
    }
    [[nodiscard]] MatrixController* controller() const { return m_model.controller(); }

    const CrosspointGridModel& m_model;
    Staging m_beforeClick;
};

} // namespace corvane
