#include "Views/Workspace/ConnectPromptModel.h"

#include <QtMath>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

bool isConnecting(const ConnectionStatus& status)
{
    return std::holds_alternative<Connecting>(status);
}

QString percentRead(double fraction)
{
    return u"%1% read"_s.arg(qFloor(fraction * 100));
}

} // namespace

void ConnectPromptModel::pressButton()
{
    if (!controller())
        return;
    if (isConnecting(controller()->status()))
        controller()->disconnect();
    else
        controller()->connect();
}

void ConnectPromptModel::refresh()
{
    const auto& connection = controller()->connection();
    const auto& status = controller()->status();
    const auto progress = controller()->readingProgress();
    const bool canCancel = isConnecting(status);
    const auto& failure = controller()->connectionFailure();
    replace(m_content,
        {.symbol = symbolName(connection.vendor),
            .tint = routerColor(connection, palette()),
            .name = connection.name,
            .address = u"%1 · %2"_s.arg(displayName(connection.vendor), connection.endpointDescription()),
            .status = statusLook(status, palette()),
            .message = canCancel ? controller()->statusMessage() : failure,
            .isFailure = !canCancel && !failure.isEmpty(),
            .showsProgress = progress.has_value(),
            .progress = progress.value_or(0),
            .progressText = progress ? percentRead(*progress) : QString(),
            .buttonText = canCancel ? u"Cancel"_s : u"Connect"_s,
            .buttonSymbol = canCancel ? u"xmark"_s : u"bolt.fill"_s});
}

} // namespace corvane
