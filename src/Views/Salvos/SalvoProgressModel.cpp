#include "Views/Salvos/SalvoProgressModel.h"

#include <utility>

namespace corvane {

SalvoProgressModel::SalvoProgressModel(SerialQueue& mainQueue)
    : m_turn(
        mainQueue, pace, [this] { refresh(); }, pace)
{
}

void SalvoProgressModel::setController(MatrixController* newController)
{
    if (m_controller)
        QObject::disconnect(m_controller, nullptr, this, nullptr);
    m_controller = newController;
    if (newController)
        connect(newController, &MatrixController::firingProgressChanged, this, [this] { m_turn.restart(); });
    refresh();
}

void SalvoProgressModel::refresh()
{
    SalvoProgressContent content;
    if (const auto progress = m_controller ? m_controller->firingProgress() : std::nullopt)
        content = {.isShown = true,
            .fraction = static_cast<double>(progress->confirmed) / static_cast<double>(progress->total),
            .text = u"%1 of %2 crosspoints confirmed"_s.arg(progress->confirmed).arg(progress->total)};
    if (std::exchange(m_content, content) != content)
        emit contentChanged();
}

} // namespace corvane
