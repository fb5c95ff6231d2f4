#pragma once

#include <QObject>

#include <functional>
#include <optional>

namespace corvane {

/// Asks the desktop whether it prefers dark, and tells each answer: absent means that it has no preference.
///
/// Returns at once and costs nothing where no desktop answers. `onAnswer` is called on the GUI thread, for as
/// long as `owner` lives.
void followDesktopColorScheme(QObject& owner, const std::function<void(std::optional<bool>)>& onAnswer);

} // namespace corvane
