#pragma once

#include <QFont>

/// The fonts of the grid. The headers are measured in the label fonts.
namespace corvane::gridFonts {

[[nodiscard]] QFont sourceLabel();
[[nodiscard]] QFont sourceNumber();
[[nodiscard]] QFont destinationLabel();
[[nodiscard]] QFont destinationNumber();
[[nodiscard]] QFont routedLabel();
[[nodiscard]] QFont corner();

} // namespace corvane::gridFonts
