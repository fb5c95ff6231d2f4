#include "Views/LabelWidths.h"

#include <QFontMetricsF>

#include <cmath>

namespace corvane {

LabelWidths::LabelWidths(const QFont& font) : m_font(font) { }

int LabelWidths::widest(const QList<Port>& ports)
{
    const QFontMetricsF metrics(m_font);
    QHash<QString, int> widths;
    int widest = 0;
    for (const Port& port : ports) {
        const auto known = m_widths.constFind(port.label);
        const int width = known != m_widths.cend()
            ? *known
            : static_cast<int>(std::ceil(metrics.horizontalAdvance(port.label)));
        widths.insert(port.label, width);
        widest = std::max(widest, width);
    }
    m_widths = std::move(widths);
    return widest;
}

} // namespace corvane
