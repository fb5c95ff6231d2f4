#include "Views/List/DestinationListModel.h"

namespace corvane {

DestinationListModel::DestinationListModel(SerialQueue& mainQueue, const GlassKit& theme)
    : m_clicks(mainQueue), m_sources(m_clicks, theme), m_destinations(m_clicks, theme)
{
}

void DestinationListModel::setController(MatrixController* controller)
{
    if (controller == m_sources.controller())
        return;
    m_clicks.settle();
    m_sources.setController(controller);
    m_destinations.setController(controller);
}

} // namespace corvane
