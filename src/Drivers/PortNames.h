#pragma once

#include "Model/RouterModels.h"

namespace corvane {

/// What a port is called that has no name of its own: "In 1", "Out 1" and so on, from index 0.
[[nodiscard]] QString numberedLabel(PortKind kind, qint64 index);

/// The level of routers that switch everything together, or that are shown so: index 0.
[[nodiscard]] QList<RouterLevel> onlyVideoLevel();

} // namespace corvane
