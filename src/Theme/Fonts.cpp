#include "Theme/Fonts.h"

#include <QFontDatabase>
#include <QGuiApplication>

#include <array>
#include <cmath>

namespace corvane::Fonts {

using namespace Qt::StringLiterals;

namespace {

constexpr double bodySize = 13;

#ifndef Q_OS_MACOS
constexpr std::array textFaces{
    "Inter-Regular.otf", "Inter-Medium.otf", "Inter-SemiBold.otf", "Inter-Bold.otf"};
#else
// The platform has a face of its own for this.
constexpr std::array<const char*, 0> textFaces{};
#endif

void loadFace(const char* file)
{
    QFontDatabase::addApplicationFont(u":/fonts/%1"_s.arg(QLatin1String(file)));
}

QFont sized(const QString& family, double size)
{
    // Qt makes a font's height a whole number of pixels. Its width it leaves alone, so the measure of a label
    // keeps the fraction.
    const auto height = std::ceil(size);
    QFont font(family);
    font.setPixelSize(static_cast<int>(height));
    font.setStretch(qRound(100 * size / height));
    // Full hinting moves stems to whole pixels, and labels would differ in measure from machine to machine.
    font.setHintingPreference(QFont::PreferVerticalHinting);
    return font;
}

} // namespace

void load()
{
    for (const char* face : textFaces)
        loadFace(face);
    loadFace("CorvaneSymbols.ttf");
    QGuiApplication::setFont(text(bodySize));
}

QString textFamily()
{
#ifdef Q_OS_MACOS
    return QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
#else
    return u"Inter"_s;
#endif
}

QString symbolFamily()
{
    return u"Corvane Symbols"_s;
}

QFont text(double size, QFont::Weight weight)
{
    auto font = sized(textFamily(), size);
    font.setWeight(weight);
    return font;
}

QFont symbol(double size)
{
    return sized(symbolFamily(), size);
}

} // namespace corvane::Fonts
