#pragma once

#include "Drivers/Tcp/PortTable.h"
#include "Model/RouterModels.h"

namespace corvane {

/// No real matrix comes near it. Devices that speak of more ports are not believed: nothing may be allocated,
/// or asked for, by a number alone.
inline constexpr qint64 maximumPortCount = 65536;

/// As a person and many devices count; stops at the ends of the integers.
[[nodiscard]] qint64 oneBased(qint64 index);
[[nodiscard]] qint64 zeroBased(qint64 number);

/// What a port is called that has no name of its own: "In 1", "Out 1" and so on, from index 0.
[[nodiscard]] QString numberedLabel(PortKind kind, qint64 index);

/// The ports from 0 to `count` - 1, under the device's names or else their numbered ones.
[[nodiscard]] QList<Port> portList(PortKind kind, qint64 count, PortTable<QString> labels = {});

/// The level of routers that switch everything together, or that are shown so: index 0.
[[nodiscard]] QList<RouterLevel> onlyVideoLevel();

} // namespace corvane
