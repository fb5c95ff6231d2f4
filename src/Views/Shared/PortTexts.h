#pragma once

#include "Model/RouterModels.h"

/// What several screens say of ports in the same words.
namespace corvane::portTexts {

/// Stands where a port should be named and can't be.
[[nodiscard]] QString noName();

/// The port at this position of the list, which for every driver is the port's index, and its label. Absent
/// when there is no position, or no port at it.
[[nodiscard]] const Port* portAt(const QList<Port>& ports, std::optional<qint64> position);
[[nodiscard]] std::optional<QString> labelAt(const QList<Port>& ports, std::optional<qint64> position);

/// What screen readers call a port: its label, or where that is blank what it is and its number.
[[nodiscard]] QString spokenName(const Port& port);

/// What the device says of the signal at a source: its format, whether there is one, or nothing at all.
[[nodiscard]] std::optional<QString> signal(const RouterState& state, qint64 source);

} // namespace corvane::portTexts
