#pragma once

#include "Theme/Fonts.h"
#include "Theme/GlassPalette.h"
#include "Theme/Spring.h"
#include "Theme/SystemAppearance.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace corvane {

/// The theme as QML sees it, and painted surfaces too: every colour, font, size and spring a screen may use,
/// named by its job. Colours follow the system's light or dark setting; everything else is fixed.
///
/// Lives on the GUI thread; `Fonts::load` comes first. All lengths are logical pixels, all durations
/// milliseconds.
class GlassKit : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(bool isDark READ isDark NOTIFY paletteChanged FINAL)
    Q_PROPERTY(QColor window READ window NOTIFY paletteChanged FINAL)
    Q_PROPERTY(QColor sidebar READ sidebar NOTIFY paletteChanged FINAL)
    Q_PROPERTY(QColor surface READ surface NOTIFY paletteChanged FINAL)
    Q_PROPERTY(QColor raised READ raised NOTIFY paletteChanged FINAL)
    Q_PROPERTY(QColor selectedSegment READ selectedSegment NOTIFY paletteChanged FINAL)
    Q_PROPERTY(QColor separator READ separator NOTIFY paletteChanged FINAL)
    Q_PROPERTY(QColor faint READ faint NOTIFY paletteChanged FINAL)
    Q_PROPERTY(QColor text READ text NOTIFY paletteChanged FINAL)
    Q_PROPERTY(QColor secondary READ secondary NOTIFY paletteChanged FINAL)
    Q_PROPERTY(QColor onTint READ onTint NOTIFY paletteChanged FINAL)
    Q_PROPERTY(QColor quaternary READ quaternary NOTIFY paletteChanged FINAL)
    Q_PROPERTY(QColor selection READ selection NOTIFY paletteChanged FINAL)
    Q_PROPERTY(QColor shadow READ shadow NOTIFY paletteChanged FINAL)
    Q_PROPERTY(QColor accent READ accent NOTIFY paletteChanged FINAL)
    Q_PROPERTY(QColor blue READ blue NOTIFY paletteChanged FINAL)
    Q_PROPERTY(QColor purple READ purple NOTIFY paletteChanged FINAL)
    Q_PROPERTY(QColor teal READ teal NOTIFY paletteChanged FINAL)
    Q_PROPERTY(QColor indigo READ indigo NOTIFY paletteChanged FINAL)
    Q_PROPERTY(QColor mint READ mint NOTIFY paletteChanged FINAL)
    Q_PROPERTY(QColor cyan READ cyan NOTIFY paletteChanged FINAL)
    Q_PROPERTY(QColor orange READ orange NOTIFY paletteChanged FINAL)
    Q_PROPERTY(QColor green READ green NOTIFY paletteChanged FINAL)
    Q_PROPERTY(QColor red READ red NOTIFY paletteChanged FINAL)

    Q_PROPERTY(QFont largeTitleFont MEMBER largeTitleFont CONSTANT FINAL)
    Q_PROPERTY(QFont headingFont MEMBER headingFont CONSTANT FINAL)
    Q_PROPERTY(QFont subheadlineFont MEMBER subheadlineFont CONSTANT FINAL)
    Q_PROPERTY(QFont titleFont MEMBER titleFont CONSTANT FINAL)
    Q_PROPERTY(QFont rowFont MEMBER rowFont CONSTANT FINAL)
    Q_PROPERTY(QFont bodyFont MEMBER bodyFont CONSTANT FINAL)
    Q_PROPERTY(QFont controlFont MEMBER controlFont CONSTANT FINAL)
    Q_PROPERTY(QFont portNameFont MEMBER portNameFont CONSTANT FINAL)
    Q_PROPERTY(QFont subtitleFont MEMBER subtitleFont CONSTANT FINAL)
    Q_PROPERTY(QFont calloutFont MEMBER calloutFont CONSTANT FINAL)
    Q_PROPERTY(QFont captionFont MEMBER captionFont CONSTANT FINAL)
    Q_PROPERTY(QFont captionStrongFont MEMBER captionStrongFont CONSTANT FINAL)
    Q_PROPERTY(QFont numberFont MEMBER numberFont CONSTANT FINAL)
    Q_PROPERTY(QFont markFont MEMBER markFont CONSTANT FINAL)
    Q_PROPERTY(QFont smallMarkFont MEMBER smallMarkFont CONSTANT FINAL)

    Q_PROPERTY(int sideMargin MEMBER sideMargin CONSTANT FINAL)
    Q_PROPERTY(int controlSpacing MEMBER controlSpacing CONSTANT FINAL)
    Q_PROPERTY(int cellGap MEMBER cellGap CONSTANT FINAL)
    Q_PROPERTY(int controlHeight MEMBER controlHeight CONSTANT FINAL)
    Q_PROPERTY(int barPadding MEMBER barPadding CONSTANT FINAL)
    Q_PROPERTY(int cellRadius MEMBER cellRadius CONSTANT FINAL)
    Q_PROPERTY(int rowRadius MEMBER rowRadius CONSTANT FINAL)
    Q_PROPERTY(int selectableRowRadius MEMBER selectableRowRadius CONSTANT FINAL)
    Q_PROPERTY(int paneRadius MEMBER paneRadius CONSTANT FINAL)
    Q_PROPERTY(int iconBoxRadius MEMBER iconBoxRadius CONSTANT FINAL)
    Q_PROPERTY(int controlRadius MEMBER controlRadius CONSTANT FINAL)
    Q_PROPERTY(int barRadius MEMBER barRadius CONSTANT FINAL)

    Q_PROPERTY(QEasingCurve layoutSpring MEMBER layoutSpringEasing CONSTANT FINAL)
    Q_PROPERTY(int layoutSpringDuration MEMBER layoutSpringDuration CONSTANT FINAL)
    Q_PROPERTY(QEasingCurve crosspointSpring MEMBER crosspointSpringEasing CONSTANT FINAL)
    Q_PROPERTY(int crosspointSpringDuration MEMBER crosspointSpringDuration CONSTANT FINAL)
    Q_PROPERTY(int hoverDuration MEMBER hoverDuration CONSTANT FINAL)
    Q_PROPERTY(int bannerDuration MEMBER bannerDuration CONSTANT FINAL)
    Q_PROPERTY(int pulseDuration MEMBER pulseDuration CONSTANT FINAL)

public:
    explicit GlassKit(QObject* parent = nullptr);

    /// Makes this kit the one that QML sees in `engine`. It must outlive the engine's objects.
    void serve(QQmlEngine& engine);
    /// For the engine: the kit that serves it, or else one of its own.
    static GlassKit* create(QQmlEngine* engine, QJSEngine* scriptEngine);

    [[nodiscard]] const GlassPalette& palette() const
    {
        return isDark() ? GlassPalette::dark() : GlassPalette::light();
    }
    [[nodiscard]] bool isDark() const { return m_appearance.isDark(); }
    [[nodiscard]] QColor window() const { return palette().window; }
    [[nodiscard]] QColor sidebar() const { return palette().sidebar; }
    [[nodiscard]] QColor surface() const { return palette().surface; }
    [[nodiscard]] QColor raised() const { return palette().raised; }
    [[nodiscard]] QColor selectedSegment() const { return palette().selectedSegment; }
    [[nodiscard]] QColor separator() const { return palette().separator; }
    [[nodiscard]] QColor faint() const { return palette().faint; }
    [[nodiscard]] QColor text() const { return palette().text; }
    [[nodiscard]] QColor secondary() const { return palette().secondary; }
    [[nodiscard]] QColor onTint() const { return palette().onTint; }
    [[nodiscard]] QColor quaternary() const { return palette().quaternary; }
    [[nodiscard]] QColor selection() const { return palette().selection; }
    [[nodiscard]] QColor shadow() const { return palette().shadow; }
    [[nodiscard]] QColor accent() const { return palette().accent; }
    [[nodiscard]] QColor blue() const { return palette().blue; }
    [[nodiscard]] QColor purple() const { return palette().purple; }
    [[nodiscard]] QColor teal() const { return palette().teal; }
    [[nodiscard]] QColor indigo() const { return palette().indigo; }
    [[nodiscard]] QColor mint() const { return palette().mint; }
    [[nodiscard]] QColor cyan() const { return palette().cyan; }
    [[nodiscard]] QColor orange() const { return palette().orange; }
    [[nodiscard]] QColor green() const { return palette().green; }
    [[nodiscard]] QColor red() const { return palette().red; }

    /// The same colour at another opacity, 0 to 1, of what it had.
    Q_INVOKABLE [[nodiscard]] QColor faded(const QColor& color, double opacity) const;
    /// A tint as text that can be read on every surface.
    Q_INVOKABLE [[nodiscard]] QColor tintText(const QColor& tint) const;
    /// A tint as a fill on which text in `onTint` can be read.
    Q_INVOKABLE [[nodiscard]] QColor tintFill(const QColor& tint) const;
    /// What a `Symbol` writes; empty for a name that has no glyph.
    Q_INVOKABLE [[nodiscard]] QString symbolText(const QString& name) const;
    /// The icon font at `size`, which may have a fraction.
    Q_INVOKABLE [[nodiscard]] QFont symbolFont(double size) const;

    const QFont largeTitleFont = Fonts::text(22, QFont::DemiBold);
    const QFont headingFont = Fonts::text(16, QFont::DemiBold);
    const QFont subheadlineFont = Fonts::text(12, QFont::DemiBold);
    const QFont titleFont = Fonts::text(14, QFont::DemiBold);
    const QFont rowFont = Fonts::text(13, QFont::Medium);
    const QFont bodyFont = Fonts::text(13);
    const QFont controlFont = Fonts::text(12.5, QFont::Medium);
    const QFont portNameFont = Fonts::text(12.5, QFont::DemiBold);
    const QFont subtitleFont = Fonts::text(12);
    const QFont calloutFont = Fonts::text(12, QFont::Medium);
    const QFont captionFont = Fonts::text(11);
    const QFont captionStrongFont = Fonts::text(11, QFont::DemiBold);
    const QFont numberFont = Fonts::text(12, QFont::Bold);
    const QFont markFont = Fonts::text(10, QFont::Bold);
    const QFont smallMarkFont = Fonts::text(9, QFont::Bold);

    const int sideMargin = 16;
    const int controlSpacing = 8;
    const int cellGap = 5;
    const int controlHeight = 28;
    const int barPadding = 9;
    const int cellRadius = 10;
    const int rowRadius = 8;
    const int selectableRowRadius = 11;
    const int paneRadius = 18;
    const int iconBoxRadius = 7;
    const int controlRadius = 7;
    const int barRadius = 22;

    const QEasingCurve layoutSpringEasing = layoutSpringCurve();
    const int layoutSpringDuration = static_cast<int>(settlingTime(layoutSpring).count());
    const QEasingCurve crosspointSpringEasing = crosspointSpringCurve();
    const int crosspointSpringDuration = static_cast<int>(settlingTime(crosspointSpring).count());
    const int hoverDuration = 120;
    const int bannerDuration = 250;
    const int pulseDuration = 900;

signals:
    void paletteChanged();

private:
    SystemAppearance m_appearance;
};

} // namespace corvane
