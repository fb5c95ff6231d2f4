#include "Views/Workspace/ErrorBannerModel.h"

#include <utility>

namespace corvane {

using namespace std::chrono_literals;

ErrorBannerModel::ErrorBannerModel(SerialQueue& mainQueue, const GlassKit& theme, QObject* parent)
    : ScreenModel(theme, parent), m_dismissal(mainQueue, 4s, [this] { dismiss(); })
{
}

void ErrorBannerModel::dismiss()
{
    if (controller())
        controller()->setLastError(std::nullopt);
}

void ErrorBannerModel::setBeingRead(bool isBeingRead)
{
    if (std::exchange(m_isBeingRead, isBeingRead) != isBeingRead)
        restartDismissal();
}

void ErrorBannerModel::refresh()
{
    const auto message =
        controller()->isConnected() ? controller()->lastError().value_or(QString()) : QString();
    if (message == m_message)
        return;
    m_message = message;
    m_isBeingRead = m_isBeingRead && !message.isEmpty();
    restartDismissal();
    emit contentChanged();
}

void ErrorBannerModel::restartDismissal()
{
    if (m_message.isEmpty() || m_isBeingRead)
        m_dismissal.cancel();
    else
        m_dismissal.restart();
}

} // namespace corvane
