#include "Theme/GlassPalette.h"

#include "Theme/Contrast.h"

namespace corvane {

const GlassPalette& GlassPalette::light()
{
    static const GlassPalette palette{
        .isDark = false,
        .window = QColor(0xf4f5f7),
        .sidebar = QColor(0xeaecef),
        .surface = QColor(0xffffff),
        .raised = QColor(0xffffff),
        .selectedSegment = QColor(0xffffff),
        .separator = withOpacity(Qt::black, 0.11),
        .faint = withOpacity(Qt::black, 0.07),
        .text = QColor(0x1b1d21),
        .secondary = QColor(0x4b5159),
        .unavailable = QColor(0x6c727b),
        .onTint = QColor(0xffffff),
        .quaternary = withOpacity(Qt::black, 0.06),
        .selection = withOpacity(QColor(0x0a6fe8), 0.16),
        .shadow = withOpacity(Qt::black, 0.12),
        .accent = QColor(0x0a6fe8),
        .blue = QColor(0x0a6fe8),
        .purple = QColor(0x9c47dc),
        .teal = QColor(0x128299),
        .indigo = QColor(0x5856d6),
        .mint = QColor(0x0c8272),
        .cyan = QColor(0x0b7fba),
        .orange = QColor(0xb86204),
        .green = QColor(0x1a8743),
        .red = QColor(0xd9362e),
    };
    return palette;
}

const GlassPalette& GlassPalette::dark()
{
    static const GlassPalette palette{
        .isDark = true,
        .window = QColor(0x17181b),
        .sidebar = QColor(0x1e1f23),
        .surface = QColor(0x26282d),
        .raised = QColor(0x2e3036),
        .selectedSegment = QColor(0x4a4d55),
        .separator = withOpacity(Qt::white, 0.10),
        .faint = withOpacity(Qt::white, 0.06),
        .text = QColor(0xf2f3f5),
        .secondary = QColor(0xb4bac2),
        .unavailable = QColor(0x969ca5),
        .onTint = QColor(0xffffff),
        .quaternary = withOpacity(Qt::white, 0.075),
        .selection = withOpacity(QColor(0x3b93ff), 0.22),
        .shadow = withOpacity(Qt::black, 0.5),
        .accent = QColor(0x3b93ff),
        .blue = QColor(0x3b93ff),
        .purple = QColor(0xb678f5),
        .teal = QColor(0x3fc1d6),
        .indigo = QColor(0x8b83ff),
        .mint = QColor(0x5fdcc9),
        .cyan = QColor(0x5ccbff),
        .orange = QColor(0xff9f2e),
        .green = QColor(0x35c96a),
        .red = QColor(0xff5a52),
    };
    return palette;
}

QColor GlassPalette::faded(const QColor& color, double opacity) const
{
    return withOpacity(color, opacity);
}

QColor GlassPalette::tintText(const QColor& tint) const
{
    return corvane::tintText(tint, *this);
}

QColor GlassPalette::tintFill(const QColor& tint) const
{
    return corvane::tintFill(tint, *this);
}

QColor withOpacity(QColor color, double opacity)
{
    color.setAlphaF(static_cast<float>(color.alphaF() * opacity));
    return color;
}

} // namespace corvane
