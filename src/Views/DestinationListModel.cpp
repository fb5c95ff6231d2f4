#include "Views/DestinationListModel.h"

namespace corvane {

void DestinationListModel::setController(MatrixController* newController)
{
    if (newController == controller())
        return;
    m_sources.setController(newController);
    m_destinations.setController(newController);
    emit controllerChanged();
}

void DestinationListModel::setDark(bool isDark)
{
    if (isDark == m_isDark)
        return;
    m_isDark = isDark;
    const auto& palette = isDark ? GlassPalette::dark() : GlassPalette::light();
    m_sources.setPalette(palette);
    m_destinations.setPalette(palette);
    emit darkChanged();
}

} // namespace corvane
