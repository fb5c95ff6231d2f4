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

    Q_PROPERTY(corvane::GlassPalette colors READ palette NOTIFY paletteChanged FINAL)

    Q_PROPERTY(QFont largeTitleFont MEMBER largeTitleFont CONSTANT FINAL)
    Q_PROPERTY(QFont headingFont MEMBER headingFont CONSTANT FINAL)
    Q_PROPERTY(QFont subheadlineFont MEMBER subheadlineFont CONSTANT FINAL)
    Q_PROPERTY(QFont titleFont MEMBER titleFont CONSTANT FINAL)
    Q_PROPERTY(QFont rowFont MEMBER rowFont CONSTANT FINAL)
    Q_PROPERTY(QFont bodyFont MEMBER bodyFont CONSTANT FINAL)
    Q_PROPERTY(QFont controlFont MEMBER controlFont CONSTANT FINAL)
    Q_PROPERTY(QFont subtitleFont MEMBER subtitleFont CONSTANT FINAL)
    Q_PROPERTY(QFont calloutFont MEMBER calloutFont CONSTANT FINAL)
    Q_PROPERTY(QFont captionFont MEMBER captionFont CONSTANT FINAL)
    Q_PROPERTY(QFont captionStrongFont MEMBER captionStrongFont CONSTANT FINAL)
    Q_PROPERTY(QFont numberFont MEMBER numberFont CONSTANT FINAL)

    Q_PROPERTY(int sideMargin MEMBER sideMargin CONSTANT FINAL)
    Q_PROPERTY(int controlSpacing MEMBER controlSpacing CONSTANT FINAL)
    Q_PROPERTY(int controlHeight MEMBER controlHeight CONSTANT FINAL)
    Q_PROPERTY(int barPadding MEMBER barPadding CONSTANT FINAL)
    Q_PROPERTY(int rowRadius MEMBER rowRadius CONSTANT FINAL)
    Q_PROPERTY(int selectableRowRadius MEMBER selectableRowRadius CONSTANT FINAL)
    Q_PROPERTY(int paneRadius MEMBER paneRadius CONSTANT FINAL)
    Q_PROPERTY(int iconBoxRadius MEMBER iconBoxRadius CONSTANT FINAL)
    Q_PROPERTY(int controlRadius MEMBER controlRadius CONSTANT FINAL)
    Q_PROPERTY(int barRadius MEMBER barRadius CONSTANT FINAL)

    Q_PROPERTY(QEasingCurve layoutSpring MEMBER layoutSpringEasing CONSTANT FINAL)
    Q_PROPERTY(int layoutSpringDuration MEMBER layoutSpringDuration CONSTANT FINAL)
    Q_PROPERTY(int hoverDuration MEMBER hoverDuration CONSTANT FINAL)
    Q_PROPERTY(int bannerDuration MEMBER bannerDuration CONSTANT FINAL)
    Q_PROPERTY(int pulseDuration MEMBER pulseDuration CONSTANT FINAL)

public:
    /// Takes its parent explicitly: a QML singleton that can be made without arguments never asks `create`.
    explicit GlassKit(QObject* parent);

    /// Makes this kit the one that QML sees in `engine`. It must outlive the engine's objects.
    void serve(QQmlEngine& engine);
    /// For the engine: the kit that serves it, or else one of its own.
    static GlassKit* create(QQmlEngine* engine, QJSEngine* scriptEngine);

    [[nodiscard]] const GlassPalette& palette() const
    {
        return isDark() ? GlassPalette::dark() : GlassPalette::light();
    }
    [[nodiscard]] bool isDark() const { return m_appearance.isDark(); }

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
    const QFont subtitleFont = Fonts::text(12);
    const QFont calloutFont = Fonts::text(12, QFont::Medium);
    const QFont captionFont = Fonts::text(11);
    const QFont captionStrongFont = Fonts::text(11, QFont::DemiBold);
    const QFont numberFont = Fonts::text(12, QFont::Bold);

    const int sideMargin = 16;
    const int controlSpacing = 8;
    const int cellGap = 5;
    const int controlHeight = 28;
    const int barPadding = 9;
    const int rowRadius = 8;
    const int selectableRowRadius = 11;
    const int paneRadius = 18;
    const int iconBoxRadius = 7;
    const int controlRadius = 7;
    const int barRadius = 22;

    const QEasingCurve layoutSpringEasing = layoutSpringCurve();
    const int layoutSpringDuration = static_cast<int>(settlingTime(layoutSpring).count());
    const int hoverDuration = 120;
    const int bannerDuration = 250;
    const int pulseDuration = 900;

signals:
    void paletteChanged();

private:
    SystemAppearance m_appearance;
};

} // namespace corvane
