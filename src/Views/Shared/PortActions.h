#pragma once

#include "Controllers/MatrixController.h"
#include "Views/Shared/MenuAction.h"

namespace corvane {

/// What the context menu of a port offers, wherever it is shown. The actions must be run while the controller
/// is there.
[[nodiscard]] QList<MenuAction> portMenu(MatrixController& controller, const PortRef& port);

} // namespace corvane
