#pragma once

#include "Views/Panels/PanelEditorModel.h"
#include "Views/Panels/PanelManagerModel.h"
#include "Views/Panels/PanelTabStripModel.h"

namespace corvane {

/// What of a router's panels is open besides the tabs.
struct PanelsContent {
    Q_GADGET
    QML_VALUE_TYPE(panelsContent)
    Q_PROPERTY(bool hasPanels MEMBER hasPanels FINAL)
    Q_PROPERTY(bool showsManager MEMBER showsManager FINAL)
    Q_PROPERTY(bool isDeleting MEMBER isDeleting FINAL)
    Q_PROPERTY(QString deleteTitle MEMBER deleteTitle FINAL)
    Q_PROPERTY(QString deleteMessage MEMBER deleteMessage FINAL)

public:
    bool hasPanels = false;
    bool showsManager = false;
    bool isDeleting = false;
    QString deleteTitle{};
    QString deleteMessage{};

    bool operator==(const PanelsContent&) const = default;
};

/// All that a router's workspace has to do with panels: tabs, manager, editor, and the question before one is
/// deleted.
class PanelsModel : public ScreenModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a WorkspaceModel")
    Q_PROPERTY(corvane::PanelsContent content READ content NOTIFY contentChanged FINAL)
    Q_PROPERTY(corvane::PanelTabStripModel* tabs READ tabs CONSTANT FINAL)
    Q_PROPERTY(corvane::PanelManagerModel* manager READ manager CONSTANT FINAL)
    Q_PROPERTY(corvane::PanelEditorModel* editor READ editor CONSTANT FINAL)

public:
    explicit PanelsModel(const GlassKit& theme, QObject* parent = nullptr);

    void setController(MatrixController* controller) override;

    [[nodiscard]] const PanelsContent& content() const { return m_content; }
    [[nodiscard]] PanelTabStripModel* tabs() { return &m_tabs; }
    [[nodiscard]] PanelManagerModel* manager() { return &m_manager; }
    [[nodiscard]] PanelEditorModel* editor() { return &m_editor; }

    /// Opens the editor on a panel that isn't there yet.
    Q_INVOKABLE void addPanel();
    /// Opens the editor on the active panel, if there is one.
    Q_INVOKABLE void editActivePanel();
    Q_INVOKABLE void openManager();
    Q_INVOKABLE void closeManager();
    Q_INVOKABLE void confirmDelete();
    Q_INVOKABLE void cancelDelete();

signals:
    /// The tab in this row, from 0, has become the active one and is to be in view.
    void tabWanted(int row);

protected:
    void refresh() override;

private:
    /// As it is stored now; absent also when it is gone meanwhile.
    [[nodiscard]] std::optional<SubPanel> deleting() const;
    void askToDelete(const SubPanel& panel);

    PanelsContent m_content;
    PanelTabStripModel m_tabs;
    PanelManagerModel m_manager;
    PanelEditorModel m_editor;
    bool m_showsManager = false;
    std::optional<QUuid> m_deleting;
};

} // namespace corvane
