#pragma once

#include "Views/Sidebar/RouterSidebarModel.h"
#include "Views/Workspace/WorkspaceModel.h"

#include <QVariantList>

namespace corvane {

/// The main window: the sidebar of routers on one side, the workspace of the selected one on the other.
///
/// Each router gets a workspace of its own when it is selected, so that nothing of one router's dialogs is
/// left for the next; an edited router keeps its workspace. Main thread.
class ContentViewModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one for the window")
    Q_PROPERTY(corvane::RouterSidebarModel* sidebar READ sidebar CONSTANT FINAL)
    /// The workspace, or nothing when no router is selected: a list, for a screen to be built anew for each
    /// workspace.
    Q_PROPERTY(QVariantList workspaces READ workspaces NOTIFY workspaceChanged FINAL)
    Q_PROPERTY(QString windowTitle READ windowTitle NOTIFY windowTitleChanged FINAL)
    /// What could not be written and why, until it is or until it is dismissed; else empty.
    Q_PROPERTY(QString saveProblem READ saveProblem NOTIFY saveProblemChanged FINAL)

public:
    /// All must outlive the model.
    ContentViewModel(const WorkspaceModel::Environment& environment, ConnectionStore& store);
    ~ContentViewModel() override;

    [[nodiscard]] RouterSidebarModel* sidebar() { return &m_sidebar; }
    /// Null when no router is selected.
    [[nodiscard]] WorkspaceModel* workspace() const { return m_workspace.get(); }
    [[nodiscard]] QVariantList workspaces() const;
    [[nodiscard]] QString windowTitle() const;
    [[nodiscard]] QString saveProblem() const { return m_store.saveProblem(); }
    Q_INVOKABLE void dismissSaveProblem();

    /// Call it once the window is up.
    void windowIsUp();

signals:
    void workspaceChanged();
    void windowTitleChanged();
    void saveProblemChanged();

private:
    void update();
    void replaceWorkspace(MatrixController* controller);

    WorkspaceModel::Environment m_environment;
    ConnectionStore& m_store;
    RouterSidebarModel m_sidebar;
    /// Screens, too, die on the event loop's next turn.
    struct DeleteLater {
        void operator()(QObject* object) const { object->deleteLater(); }
    };
    std::unique_ptr<WorkspaceModel, DeleteLater> m_workspace;
};

} // namespace corvane
