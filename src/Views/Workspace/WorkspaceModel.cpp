#include "Views/Workspace/WorkspaceModel.h"

#include "Theme/Tints.h"

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// Between the floating bar and the last row.
constexpr double barMargin = 16;

QString subtitle(const MatrixController& controller)
{
    QStringList parts{controller.state().model, controller.statusMessage()};
    parts.removeAll(QString());
    return parts.join(u" · "_s);
}

bool isMismatch(const MatrixController& controller)
{
    return controller.activePanel()
        && (controller.visibleSources().isEmpty() || controller.visibleDestinations().isEmpty());
}

} // namespace

WorkspaceModel::WorkspaceModel(const Environment& environment, MatrixController& controller, QObject* parent)
    : ScreenModel(environment.theme, parent),
      m_mainQueue(environment.mainQueue),
      m_routerID(controller.id()),
      m_toolbar(environment.theme),
      m_header(environment.theme),
      m_modes(environment.theme),
      m_grid(environment.theme),
      m_list(environment.mainQueue, environment.theme),
      m_controlBar(environment.theme, environment.zoom),
      m_prompt(environment.theme),
      m_banner(environment.mainQueue, environment.theme),
      m_rename(environment.theme),
      m_panels(environment.theme),
      m_salvoStrip(environment.mainQueue),
      m_salvoSheet(environment.mainQueue)
{
    connect(&m_controlBar, &ScreenModel::contentChanged, this, &WorkspaceModel::controlBarClearanceChanged);
    WorkspaceModel::setController(&controller);
}

void WorkspaceModel::setController(MatrixController* newController)
{
    if (newController == controller())
        return;
    for (ScreenModel* part : std::initializer_list<ScreenModel*>{
             &m_toolbar, &m_header, &m_modes, &m_controlBar, &m_prompt, &m_banner, &m_rename, &m_panels})
        part->setController(newController);
    m_salvoStrip.setController(newController);
    ScreenModel::setController(newController);
    wakeWhatIsShown();
    emit controllerChanged();
    connectIfDisconnected();
}

QString WorkspaceModel::windowTitle() const
{
    if (m_content.subtitle.isEmpty())
        return m_content.title;
    return u"%1 — %2"_s.arg(m_content.title, m_content.subtitle);
}

void WorkspaceModel::setControlBarHeight(double height)
{
    if (height == m_controlBarHeight)
        return;
    m_controlBarHeight = height;
    emit controlBarClearanceChanged();
}

double WorkspaceModel::controlBarClearance() const
{
    return m_controlBar.content().isShown ? m_controlBarHeight + barMargin : 0;
}

void WorkspaceModel::showFullRouter()
{
    if (controller())
        controller()->setActivePanelID(std::nullopt);
}

void WorkspaceModel::showPanel(int number)
{
    if (controller() && number >= 1 && number <= controller()->panels().size())
        controller()->setActivePanelID(controller()->panels().at(number - 1).id);
}

void WorkspaceModel::refresh()
{
    const auto& connection = controller()->connection();
    const bool mismatches = isMismatch(*controller());
    replace(m_content,
        {.title = connection.name,
            .subtitle = subtitle(*controller()),
            .color = routerColor(connection, palette()),
            .isConnected = controller()->isConnected(),
            .showsMatrix = !mismatches && controller()->viewMode() == RouteViewMode::matrix,
            .showsList = !mismatches && controller()->viewMode() == RouteViewMode::list,
            .showsMismatch = mismatches});
    wakeWhatIsShown();
}

void WorkspaceModel::wakeWhatIsShown()
{
    const auto shownTo = [this](bool isShown) {
        return isShown && m_content.isConnected ? controller() : nullptr;
    };
    m_grid.setController(shownTo(m_content.showsMatrix));
    m_list.setController(shownTo(m_content.showsList));
    // Salvos can be edited without the router.
    m_salvoSheet.setController(m_showingSalvos ? controller() : nullptr);
}

void WorkspaceModel::setShowingSalvos(bool isShowing)
{
    if (isShowing == m_showingSalvos)
        return;
    m_showingSalvos = isShowing;
    wakeWhatIsShown();
    emit showingSalvosChanged();
}

void WorkspaceModel::connectIfDisconnected()
{
    m_mainQueue.async([controller = QPointer(controller())] {
        if (controller && std::holds_alternative<Disconnected>(controller->status()))
            controller->connect();
    });
}

} // namespace corvane
