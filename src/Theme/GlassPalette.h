#pragma once

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// Every colour of the program, named by its job. There are two palettes, and the system's light or dark
/// setting picks one. Screens read it as `GlassKit.colors`, so that whatever they make of a colour follows a
/// change of the setting.
struct GlassPalette {
    Q_GADGET
    QML_VALUE_TYPE(glassPalette)
    Q_PROPERTY(bool isDark MEMBER isDark FINAL)
    Q_PROPERTY(QColor window MEMBER window FINAL)
    Q_PROPERTY(QColor sidebar MEMBER sidebar FINAL)
    Q_PROPERTY(QColor surface MEMBER surface FINAL)
    Q_PROPERTY(QColor raised MEMBER raised FINAL)
    Q_PROPERTY(QColor selectedSegment MEMBER selectedSegment FINAL)
    Q_PROPERTY(QColor separator MEMBER separator FINAL)
    Q_PROPERTY(QColor faint MEMBER faint FINAL)
    Q_PROPERTY(QColor text MEMBER text FINAL)
    Q_PROPERTY(QColor secondary MEMBER secondary FINAL)
    Q_PROPERTY(QColor unavailable MEMBER unavailable FINAL)
    Q_PROPERTY(QColor onTint MEMBER onTint FINAL)
    Q_PROPERTY(QColor quaternary MEMBER quaternary FINAL)
    Q_PROPERTY(QColor selection MEMBER selection FINAL)
    Q_PROPERTY(QColor shadow MEMBER shadow FINAL)
    Q_PROPERTY(QColor accent MEMBER accent FINAL)
    Q_PROPERTY(QColor orange MEMBER orange FINAL)
    Q_PROPERTY(QColor green MEMBER green FINAL)
    Q_PROPERTY(QColor red MEMBER red FINAL)

public:
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
    /// What is written on a control that has nothing to do.
    QColor unavailable;
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

    /// The same colour at another opacity, 0 to 1, of what it had.
    Q_INVOKABLE [[nodiscard]] QColor faded(const QColor& color, double opacity) const;
    /// A tint as text that can be read on every surface, on a quiet fill and on a wash of the tint.
    Q_INVOKABLE [[nodiscard]] QColor tintText(const QColor& tint) const;
    /// A tint as a fill on which text in `onTint` can be read.
    Q_INVOKABLE [[nodiscard]] QColor tintFill(const QColor& tint) const;

    static const GlassPalette& light();
    static const GlassPalette& dark();
};

/// The same colour at another opacity, 0 to 1, of what it had.
[[nodiscard]] QColor withOpacity(QColor color, double opacity);

} // namespace corvane
