#pragma once

#include "Model/RouterModels.h"

namespace corvane {

/// The ports that the screens show.
struct VisiblePorts {
    QList<Port> sources;
    QList<Port> destinations;
    bool operator==(const VisiblePorts&) const = default;
};

/// The panel's ports in the panel's order; those that the router doesn't have are left out. Should a router
/// name an index twice, the last port of that index is shown.
VisiblePorts panelPorts(const SubPanel& panel, const RouterState& state);

/// "Panel {n}", counting on from the number of panels past the names in use in any case.
QString newPanelName(const QList<SubPanel>& panels);

/// The panels at these positions, as one block in their order, moved to before position `toOffset` of the
/// list as it was. Positions outside the list are left out, and a target outside it is its nearer end.
QList<SubPanel> movedAsBlock(
    const QList<SubPanel>& panels, const QSet<qsizetype>& fromOffsets, qsizetype toOffset);

} // namespace corvane
