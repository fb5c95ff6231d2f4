#pragma once

#include "Views/Shared/ScreenModel.h"

#include <QtQml/qqmlregistration.h>

namespace corvane {

/// Asks for the new name of a port while one is being renamed.
class RenamePromptModel : public ScreenModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a WorkspaceModel")
    Q_PROPERTY(bool isShown READ isShown NOTIFY contentChanged FINAL)
    Q_PROPERTY(QString renameTitle READ renameTitle NOTIFY contentChanged FINAL)
    Q_PROPERTY(QString renameDraft READ renameDraft WRITE setRenameDraft NOTIFY renameDraftChanged FINAL)

public:
    using ScreenModel::ScreenModel;

    [[nodiscard]] bool isShown() const { return m_target.has_value(); }
    /// Empty while nothing is renamed.
    [[nodiscard]] QString renameTitle() const;
    [[nodiscard]] QString renameDraft() const;
    void setRenameDraft(const QString& draft);
    void setController(MatrixController* controller) override;

    Q_INVOKABLE void commitRename();
    Q_INVOKABLE void cancel();

signals:
    void renameDraftChanged();

protected:
    void refresh() override;

private:
    std::optional<PortRef> m_target;
};

} // namespace corvane
