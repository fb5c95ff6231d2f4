#include "Views/Panels/PanelTexts.h"

#include "Foundation/Text.h"

namespace corvane {

using namespace Qt::StringLiterals;

QString panelTexts::size(const SubPanel& panel)
{
    return u"%1 in × %2 out"_s.arg(panel.sourceIndices.size()).arg(panel.destinationIndices.size());
}

QString panelTexts::number(qint64 index)
{
    return index < 0 ? QString::number(index + 1) : QString::number(static_cast<quint64>(index) + 1);
}

QString panelTexts::missingPort(qint64 index)
{
    return u"Port %1 — not on this router"_s.arg(number(index));
}

QString panelTexts::missing(qsizetype count)
{
    if (count == 0)
        return {};
    return u"%1 not on this router — kept for when it returns."_s.arg(text::counted(count, u"saved port"_s));
}

QString panelTexts::deleteTitle(const SubPanel& panel)
{
    return u"Delete “%1”?"_s.arg(text::oneLine(panel.name));
}

QString panelTexts::deleteMessage(qint64 salvos)
{
    if (salvos == 0)
        return u"Routing is not affected — only this saved panel layout is removed."_s;
    return u"Routing is not affected. Also deletes %1 saved for this panel — they cannot be recovered."_s.arg(
        text::counted(salvos, u"salvo"_s));
}

} // namespace corvane
