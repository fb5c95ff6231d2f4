#pragma once

#include <QColor>

namespace corvane {

/// Every colour of the program, named by its job. There are two palettes, and the system's light or dark
/// setting picks one.
struct GlassPalette {
    bool isDark = true;
    /// The surfaces, from the back to the front.
    QColor window;
    QColor sidebar;
    QColor surface;
    QColor raised;
    QColor selectedSegment;
    QColor separator;
    QColor faint;
    QColor text;
    QColor secondary;
    /// What text and glyphs on a tint that was made a fill are drawn in; see `tintFill`.
    QColor onTint;
    /// The fill of things that are there but say nothing.
    QColor quaternary;
    /// Laid over what is selected.
    QColor selection;
    /// What lies under a floating surface, where it is darkest.
    QColor shadow;
    QColor accent;
    QColor blue;
    QColor purple;
    QColor teal;
    QColor indigo;
    QColor mint;
    QColor cyan;
    QColor orange;
    QColor green;
    QColor red;

    static const GlassPalette& light();
    static const GlassPalette& dark();
};

/// The same colour at another opacity, 0 to 1, of what it had.
[[nodiscard]] QColor withOpacity(QColor color, double opacity);

} // namespace corvane
