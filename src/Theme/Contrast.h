#pragma once

#include "Theme/GlassPalette.h"

namespace corvane {

/// How much text and marks have to stand out, as the ratio of WCAG 2.1.
inline constexpr double textContrast = 4.5;
inline constexpr double markContrast = 3.0;

/// 1 to 21. Both colours must be opaque.
[[nodiscard]] double contrastRatio(const QColor& one, const QColor& other);

/// What the eye sees of `top` on an opaque `bottom`.
[[nodiscard]] QColor laidOver(const QColor& top, const QColor& bottom);

/// `tint` as the colour of text: as near to it as can be read on each surface of the palette, bare or washed
/// with up to 15 % of the tint itself.
[[nodiscard]] QColor tintText(const QColor& tint, const GlassPalette& palette);

/// `tint` as a fill: as near to it as lets text in `palette.onTint` be read on it.
[[nodiscard]] QColor tintFill(const QColor& tint, const GlassPalette& palette);

} // namespace corvane
