#pragma once

#include "Views/Bar/ControlBarModel.h"
#include "Views/Grid/CrosspointGridModel.h"
#include "Views/List/DestinationListModel.h"
#include "Views/Panels/PanelsModel.h"
#include "Views/Salvos/SalvoSheetModel.h"
#include "Views/Salvos/SalvoStripModel.h"
#include "Views/Workspace/ConnectPromptModel.h"
#include "Views/Workspace/DeviceHeaderModel.h"
#include "Views/Workspace/ErrorBannerModel.h"
#include "Views/Workspace/RenamePromptModel.h"
#include "Views/Workspace/RoutingModeClusterModel.h"
#include "Views/Workspace/ToolbarModel.h"

namespace corvane {

/// What the workspace of a router shows as a whole.
struct WorkspaceContent {
    Q_GADGET
    QML_VALUE_TYPE(workspaceContent)
    Q_PROPERTY(QString title MEMBER title FINAL)
    Q_PROPERTY(QString subtitle MEMBER subtitle FINAL)
    Q_PROPERTY(QColor color MEMBER color FINAL)
    Q_PROPERTY(bool isConnected MEMBER isConnected FINAL)
    Q_PROPERTY(bool showsMatrix MEMBER showsMatrix FINAL)
    Q_PROPERTY(bool showsList MEMBER showsList FINAL)
    Q_PROPERTY(bool showsMismatch MEMBER showsMismatch FINAL)

public:
    QString title;
    /// What is known beyond the name; may be empty.
    QString subtitle;
    QColor color;
    bool isConnected = false;
    /// Exactly one of the routing area's screens.
    bool showsMatrix = false;
    bool showsList = false;
    /// None of the active panel's sources, or none of its destinations, is there.
    bool showsMismatch = false;

    bool operator==(const WorkspaceContent&) const = default;
};

/// The workspace of one router: the working screen while it is connected, the connect prompt otherwise.
///
/// Connects a disconnected router when it is first shown, and again when the router gets another controller.
/// A router whose connection failed waits for the operator.
class WorkspaceModel : public ScreenModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a ContentViewModel")
    Q_PROPERTY(corvane::WorkspaceContent content READ content NOTIFY contentChanged FINAL)
    Q_PROPERTY(corvane::MatrixController* controller READ controller NOTIFY controllerChanged FINAL)
    Q_PROPERTY(corvane::MatrixZoom* zoom READ zoom CONSTANT FINAL)
    Q_PROPERTY(corvane::ToolbarModel* toolbar READ toolbar CONSTANT FINAL)
    Q_PROPERTY(corvane::DeviceHeaderModel* header READ header CONSTANT FINAL)
    Q_PROPERTY(corvane::RoutingModeClusterModel* modes READ modes CONSTANT FINAL)
    /// These two work only while they are shown.
    Q_PROPERTY(corvane::CrosspointGridModel* grid READ grid CONSTANT FINAL)
    Q_PROPERTY(corvane::DestinationListModel* list READ list CONSTANT FINAL)
    Q_PROPERTY(corvane::ControlBarModel* controlBar READ controlBar CONSTANT FINAL)
    Q_PROPERTY(corvane::ConnectPromptModel* prompt READ prompt CONSTANT FINAL)
    Q_PROPERTY(corvane::ErrorBannerModel* banner READ banner CONSTANT FINAL)
    Q_PROPERTY(corvane::RenamePromptModel* rename READ rename CONSTANT FINAL)
    Q_PROPERTY(corvane::SalvoStripModel* salvoStrip READ salvoStrip CONSTANT FINAL)
    Q_PROPERTY(corvane::PanelsModel* panels READ panels CONSTANT FINAL)
    /// Works only while it is shown.
    Q_PROPERTY(corvane::SalvoSheetModel* salvoSheet READ salvoSheet CONSTANT FINAL)
    Q_PROPERTY(bool showingSalvos READ showingSalvos WRITE setShowingSalvos NOTIFY showingSalvosChanged FINAL)
    /// The height of the floating bar as it was last measured.
    Q_PROPERTY(double controlBarHeight READ controlBarHeight WRITE setControlBarHeight NOTIFY
            controlBarClearanceChanged FINAL)
    /// The room that the routing area keeps free for the floating bar.
    Q_PROPERTY(double controlBarClearance READ controlBarClearance NOTIFY controlBarClearanceChanged FINAL)

public:
    /// All must outlive the model.
    struct Environment {
        SerialQueue& mainQueue;
        const GlassKit& theme;
        MatrixZoom& zoom;
    };

    WorkspaceModel(const Environment& environment, MatrixController& controller, QObject* parent = nullptr);

    /// Another controller of the same router.
    void setController(MatrixController* controller) override;

    [[nodiscard]] QUuid routerID() const { return m_routerID; }
    [[nodiscard]] const WorkspaceContent& content() const { return m_content; }
    /// For the window: the title, and the subtitle behind a dash if there is one.
    [[nodiscard]] QString windowTitle() const;
    [[nodiscard]] MatrixZoom* zoom() const { return m_controlBar.zoom(); }
    [[nodiscard]] ToolbarModel* toolbar() { return &m_toolbar; }
    [[nodiscard]] DeviceHeaderModel* header() { return &m_header; }
    [[nodiscard]] RoutingModeClusterModel* modes() { return &m_modes; }
    [[nodiscard]] CrosspointGridModel* grid() { return &m_grid; }
    [[nodiscard]] DestinationListModel* list() { return &m_list; }
    [[nodiscard]] ControlBarModel* controlBar() { return &m_controlBar; }
    [[nodiscard]] ConnectPromptModel* prompt() { return &m_prompt; }
    [[nodiscard]] ErrorBannerModel* banner() { return &m_banner; }
    [[nodiscard]] RenamePromptModel* rename() { return &m_rename; }
    [[nodiscard]] PanelsModel* panels() { return &m_panels; }
    [[nodiscard]] SalvoStripModel* salvoStrip() { return &m_salvoStrip; }
    [[nodiscard]] SalvoSheetModel* salvoSheet() { return &m_salvoSheet; }
    [[nodiscard]] bool showingSalvos() const { return m_showingSalvos; }
    void setShowingSalvos(bool isShowing);

    [[nodiscard]] double controlBarHeight() const { return m_controlBarHeight; }
    void setControlBarHeight(double height);
    [[nodiscard]] double controlBarClearance() const;

    Q_INVOKABLE void showFullRouter();
    /// `number` counts from 1; a number that no panel has does nothing.
    Q_INVOKABLE void showPanel(int number);

signals:
    void controllerChanged();
    void controlBarClearanceChanged();
    void showingSalvosChanged();

protected:
    void refresh() override;

private:
    void wakeWhatIsShown();
    void connectIfDisconnected();

    SerialQueue& m_mainQueue;
    const QUuid m_routerID;
    WorkspaceContent m_content;
    ToolbarModel m_toolbar;
    DeviceHeaderModel m_header;
    RoutingModeClusterModel m_modes;
    CrosspointGridModel m_grid;
    DestinationListModel m_list;
    ControlBarModel m_controlBar;
    ConnectPromptModel m_prompt;
    ErrorBannerModel m_banner;
    RenamePromptModel m_rename;
    PanelsModel m_panels;
    SalvoStripModel m_salvoStrip;
    SalvoSheetModel m_salvoSheet;
    bool m_showingSalvos = false;
    double m_controlBarHeight = 0;
};

} // namespace corvane
