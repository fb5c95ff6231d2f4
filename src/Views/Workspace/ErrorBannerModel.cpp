#include "Views/Workspace/ErrorBannerModel.h"

namespace corvane {

using namespace std::chrono_literals;

ErrorBannerModel::ErrorBannerModel(SerialQueue& mainQueue, const GlassKit& theme, QObject* parent)
    : ControllerModel(theme, parent), m_dismissal(mainQueue, 4s, [this] { dismiss(); })
{
}

void ErrorBannerModel::dismiss()
{
    if (controller())
        controller()->setLastError(std::nullopt);
}

void ErrorBannerModel::refresh()
{
    const auto error = controller()->isConnected() ? controller()->lastError() : std::nullopt;
    const ErrorBannerContent content{
        .isShown = error.has_value(), .message = error.value_or(m_content.message)};
    if (content == m_content)
        return;
    if (content.isShown)
        m_dismissal.restart();
    else
        m_dismissal.cancel();
    replace(m_content, content);
}

} // namespace corvane
