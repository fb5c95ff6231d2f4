#pragma once

#include <QString>

namespace corvane {

/// The folder that all saved state of this user lies in: "Corvane" in the platform's place for application
/// data, on Linux "$XDG_DATA_HOME/Corvane" or "~/.local/share/Corvane". That place is made if it isn't there;
/// when it can't be had, the system's temporary folder stands in for it. The folder itself need not exist.
[[nodiscard]] QString dataFolder();

} // namespace corvane
