#pragma once

#include <QFont>
#include <QString>

/// The two faces that everything is written in. They are built into the program, so that every label has the
/// same measure on every machine.
namespace corvane::Fonts {

/// Makes the faces known to Qt and the text face the application's. Call it once, before anything is measured
/// or drawn.
void load();

[[nodiscard]] QString textFamily();
[[nodiscard]] QString symbolFamily();

/// The text face at `size` logical pixels, which may have a fraction.
[[nodiscard]] QFont text(double size, QFont::Weight weight = QFont::Normal);
[[nodiscard]] QFont symbol(double size);

} // namespace corvane::Fonts
