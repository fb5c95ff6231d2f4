#pragma once

#include <QChar>
#include <QStringList>
#include <QStringView>

#include <optional>

namespace corvane {

/// The glyph that draws a symbol in the embedded icon font; absent for a name that we don't use.
[[nodiscard]] std::optional<char16_t> symbolGlyph(QStringView name);

/// All symbol names that have a glyph.
[[nodiscard]] QStringList symbolNames();

} // namespace corvane
