#include "Theme/GlassKit.h"

#include "Theme/Contrast.h"
#include "Theme/Symbols.h"

#include <QQmlEngine>

namespace corvane {

namespace {

constexpr auto engineProperty = "glassKit";

} // namespace

GlassKit::GlassKit(QObject* parent) : QObject(parent)
{
    connect(&m_appearance, &SystemAppearance::isDarkChanged, this, &GlassKit::paletteChanged);
}

void GlassKit::serve(QQmlEngine& engine)
{
    QJSEngine::setObjectOwnership(this, QJSEngine::CppOwnership);
    engine.setProperty(engineProperty, QVariant::fromValue(this));
}

GlassKit* GlassKit::create(QQmlEngine* engine, QJSEngine*)
{
    auto* serving = engine->property(engineProperty).value<GlassKit*>();
    return serving ? serving : new GlassKit(engine);
}

QColor GlassKit::faded(const QColor& color, double opacity) const
{
    return withOpacity(color, opacity);
}

QColor GlassKit::tintText(const QColor& tint) const
{
    return corvane::tintText(tint, palette());
}

QColor GlassKit::tintFill(const QColor& tint) const
{
    return corvane::tintFill(tint, palette());
}

QString GlassKit::symbolText(const QString& name) const
{
    const auto glyph = symbolGlyph(name);
    return glyph ? QString(QChar(*glyph)) : QString();
}

QFont GlassKit::symbolFont(double size) const
{
    return Fonts::symbol(size);
}

} // namespace corvane
