#include "Views/Workspace/WorkspaceModel.h"
#include "ViewModelTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

class WorkspaceModelTest : public ControllerTest {
protected:
    WorkspaceModelTest()
    {
        router.name = u"Studio"_s;
        controller = makeController();
    }

    [[nodiscard]] std::unique_ptr<WorkspaceModel> open()
    {
        return std::make_unique<WorkspaceModel>(WorkspaceModel::Environment{queue, theme, zoom}, *controller);
    }

    /// A workspace whose router is connected.
    [[nodiscard]] std::unique_ptr<WorkspaceModel> openConnected(const RouterState& state)
    {
        connectTo(state);
        return open();
    }

    void showPanel(const QList<qint64>& sources, const QList<qint64>& destinations)
    {
        const SubPanel panel{
            .name = u"Gallery"_s, .sourceIndices = sources, .destinationIndices = destinations};
        controller->savePanel(panel);
        controller->setActivePanelID(panel.id);
    }

    GlassKit theme{nullptr};
    MatrixZoom zoom;
};

TEST_F(WorkspaceModelTest, TitlesTheWindowWithWhatIsKnown)
{
    struct Case {
        const char* name;
        QString model;
        QString message;
        QString subtitle;
        QString windowTitle;
    };
    const Case cases[] = {
        {"nothing", {}, {}, {}, u"Studio"_s},
        {"a model", u"Hub"_s, {}, u"Hub"_s, u"Studio — Hub"_s},
        {"a message", {}, u"Reading…"_s, u"Reading…"_s, u"Studio — Reading…"_s},
        {"both", u"Hub"_s, u"Reading…"_s, u"Hub · Reading…"_s, u"Studio — Hub · Reading…"_s},
    };
    const auto workspace = open();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        auto state = matrix(2, 2);
        state.model = c.model;
        connectTo(state);
        report(driverEvent::Status{c.message});
        EXPECT_EQ(workspace->content().title, u"Studio"_s);
        EXPECT_EQ(workspace->content().subtitle, c.subtitle);
        EXPECT_EQ(workspace->windowTitle(), c.windowTitle);
    }
}

TEST_F(WorkspaceModelTest, ConnectsADisconnectedRouterOnTheNextTurn)
{
    const auto workspace = open();
    EXPECT_TRUE(drivers.empty());
    queue.runReady();
    EXPECT_EQ(controller->status(), ConnectionStatus(Connecting{}));
}

TEST_F(WorkspaceModelTest, LeavesARouterThatFailedOrIsUpAlone)
{
    connectTo(matrix(2, 2));
    const auto workspace = open();
    queue.runReady();
    EXPECT_EQ(drivers.size(), 1U);
    report(driverEvent::Error{u"gone"_s});
    const auto again = open();
    queue.runReady();
    EXPECT_EQ(drivers.size(), 1U);
}

TEST_F(WorkspaceModelTest, ConnectsTheNewControllerOfAnEditedRouter)
{
    const auto workspace = openConnected(matrix(2, 2));
    const auto old = std::exchange(controller, makeController());
    workspace->setController(controller.get());
    EXPECT_FALSE(workspace->content().isConnected);
    queue.runReady();
    report(driverEvent::Connected{matrix(3, 3)});
    EXPECT_TRUE(workspace->content().isConnected);
    EXPECT_EQ(workspace->header()->content().specs, u"3 in × 3 out · Level 0"_s);
}

TEST_F(WorkspaceModelTest, SurvivesARouterThatIsRemovedBeforeItConnects)
{
    const auto workspace = open();
    controller.reset();
    queue.runReady();
    EXPECT_TRUE(drivers.empty());
    EXPECT_EQ(workspace->controller(), nullptr);
}

TEST_F(WorkspaceModelTest, ChoosesTheRoutingAreasScreen)
{
    struct Case {
        const char* name;
        std::optional<std::pair<QList<qint64>, QList<qint64>>> panel;
        RouteViewMode view;
        bool matrix;
        bool list;
        bool mismatch;
    };
    using Ports = std::pair<QList<qint64>, QList<qint64>>;
    const Case cases[] = {
        {"the whole router as a grid", std::nullopt, RouteViewMode::matrix, true, false, false},
        {"the whole router as a list", std::nullopt, RouteViewMode::list, false, true, false},
        {"a panel that fits", Ports{{0}, {1}}, RouteViewMode::matrix, true, false, false},
        {"no source of the panel", Ports{{77}, {1}}, RouteViewMode::matrix, false, false, true},
        {"no destination of the panel", Ports{{0}, {77}}, RouteViewMode::matrix, false, false, true},
        {"no destination, in the list", Ports{{0}, {77}}, RouteViewMode::list, false, false, true},
    };
    const auto workspace = openConnected(matrix(4, 4));
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        controller->setActivePanelID(std::nullopt);
        controller->setViewMode(c.view);
        if (c.panel)
            showPanel(c.panel->first, c.panel->second);
        EXPECT_EQ(workspace->content().showsMatrix, c.matrix);
        EXPECT_EQ(workspace->content().showsList, c.list);
        EXPECT_EQ(workspace->content().showsMismatch, c.mismatch);
    }
}

TEST_F(WorkspaceModelTest, AGridThatIsHiddenSleepsAndWakesWithOneRecompute)
{
    const auto workspace = openConnected(matrix(4, 4));
    const auto& grid = *workspace->grid();
    Tellings rows(grid, &CrosspointGridModel::rowChanged);
    Tellings ports(grid, &CrosspointGridModel::portsChanged);
    report(driverEvent::RouteChanged{0, 1, 3});
    EXPECT_EQ(rows.count(), 1);

    controller->setViewMode(RouteViewMode::list);
    EXPECT_EQ(ports.count(), 1);
    report(driverEvent::RouteChanged{0, 1, 2});
    report(driverEvent::StateReplaced{matrix(6, 6)});
    EXPECT_EQ(rows.count() + ports.count(), 0);

    controller->setViewMode(RouteViewMode::matrix);
    EXPECT_EQ(ports.count(), 1);
    EXPECT_EQ(grid.destinations().size(), 6);
    report(driverEvent::Disconnected{{}});
    EXPECT_TRUE(grid.destinations().isEmpty()) << "the grid isn't shown without a connection";
}

TEST_F(WorkspaceModelTest, AnEmptyRouterIsNoMismatch)
{
    const auto workspace = openConnected(RouterState{});
    EXPECT_FALSE(workspace->content().showsMismatch);
}

TEST_F(WorkspaceModelTest, GivesWayToThePromptWhenTheLinkDrops)
{
    const auto workspace = openConnected(matrix(4, 4));
    EXPECT_TRUE(workspace->content().isConnected);
    report(driverEvent::Disconnected{u"Connection lost"_s});
    EXPECT_FALSE(workspace->content().isConnected);
    EXPECT_EQ(workspace->content().subtitle, u"Connection lost"_s);
}

TEST_F(WorkspaceModelTest, KeepsRoomForTheBarAsLongAsThereIsOne)
{
    const auto workspace = openConnected(matrix(4, 4));
    Tellings tellings(*workspace, &WorkspaceModel::controlBarClearanceChanged);
    workspace->setControlBarHeight(46);
    EXPECT_EQ(workspace->controlBarClearance(), 62);
    EXPECT_EQ(tellings.count(), 1);
    controller->setViewMode(RouteViewMode::list);
    EXPECT_EQ(workspace->controlBarClearance(), 0);
    EXPECT_GE(tellings.count(), 1);
}

TEST_F(WorkspaceModelTest, NumbersShowPanelsInTheirOrder)
{
    const auto workspace = openConnected(matrix(4, 4));
    showPanel({0}, {0});
    showPanel({1}, {1});
    const auto made = controller->panels();
    workspace->showPanel(1);
    EXPECT_EQ(controller->activePanelID(), made.at(0).id);
    workspace->showPanel(2);
    EXPECT_EQ(controller->activePanelID(), made.at(1).id);
    workspace->showPanel(3);
    EXPECT_EQ(controller->activePanelID(), made.at(1).id);
    workspace->showFullRouter();
    EXPECT_EQ(controller->activePanelID(), std::nullopt);
}

} // namespace

} // namespace corvane
