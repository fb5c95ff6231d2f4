#include "Theme/GlassKit.h"

#include "Theme/ControlAccessible.h"
#include "Theme/Symbols.h"

#include <QQmlEngine>

namespace corvane {

namespace {

constexpr auto engineProperty = "glassKit";

} // namespace

GlassKit::GlassKit(QObject* parent) : QObject(parent)
{
    ControlAccessible::install();
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
