#pragma once

#include <QFont>

/// The type of the grid. The label fonts are also what the headers are measured in.
namespace corvane::gridFonts {

[[nodiscard]] QFont sourceLabel();
[[nodiscard]] QFont sourceNumber();
[[nodiscard]] QFont destinationLabel();
[[nodiscard]] QFont destinationNumber();
[[nodiscard]] QFont routedLabel();
[[nodiscard]] QFont corner();

} // namespace corvane::gridFonts
