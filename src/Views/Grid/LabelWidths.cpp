#include "Views/Grid/LabelWidths.h"

#include <QFontMetricsF>

#include <cmath>

namespace corvane {

QString visiblePart(const QString& label)
{
    constexpr qsizetype most = 256;
    if (label.size() <= most)
        return label;
    return label.left(label.at(most - 1).isHighSurrogate() ? most - 1 : most);
}

LabelWidths::LabelWidths(const QFont& font) : m_font(font) { }

int LabelWidths::widest(const QList<Port>& ports)
{
    const QFontMetricsF metrics(m_font);
    QHash<QString, int> widths;
    int widest = 0;
    for (const Port& port : ports) {
        const QString label = visiblePart(port.label);
        const auto known = m_widths.constFind(label);
        const int width =
            known != m_widths.cend() ? *known : static_cast<int>(std::ceil(metrics.horizontalAdvance(label)));
        widths.insert(label, width);
        widest = std::max(widest, width);
    }
    m_widths = std::move(widths);
    return widest;
}

} // namespace corvane
