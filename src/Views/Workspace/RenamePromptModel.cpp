#include "Views/Workspace/RenamePromptModel.h"

namespace corvane {

using namespace Qt::StringLiterals;

QString RenamePromptModel::renameTitle() const
{
    if (!m_target)
        return {};
    return m_target->kind == PortKind::source ? u"Rename Source"_s : u"Rename Destination"_s;
}

QString RenamePromptModel::renameDraft() const
{
    return controller() ? controller()->renameDraft() : QString();
}

void RenamePromptModel::setRenameDraft(const QString& draft)
{
    if (controller())
        controller()->setRenameDraft(draft);
}

void RenamePromptModel::setController(MatrixController* newController)
{
    ScreenModel::setController(newController);
    if (newController)
        connect(newController, &MatrixController::renameDraftChanged, this,
            &RenamePromptModel::renameDraftChanged, Qt::UniqueConnection);
    emit renameDraftChanged();
}

void RenamePromptModel::commitRename()
{
    if (controller())
        controller()->commitRename();
}

void RenamePromptModel::cancel()
{
    if (controller())
        controller()->setRenameTarget(std::nullopt);
}

void RenamePromptModel::refresh()
{
    replace(m_target, controller()->renameTarget());
}

} // namespace corvane
