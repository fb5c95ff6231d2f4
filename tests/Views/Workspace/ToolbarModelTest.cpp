#include "Views/Workspace/ToolbarModel.h"
#include "ViewModelTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

class ToolbarModelTest : public ViewModelTest<ToolbarModel> { };

TEST_F(ToolbarModelTest, IsThereOnlyWhileTheRouterIsConnected)
{
    EXPECT_FALSE(model.content().isShown);
    connectTo(matrix(2, 2));
    EXPECT_TRUE(model.content().isShown);
    report(driverEvent::Disconnected{});
    EXPECT_FALSE(model.content().isShown);
}

TEST_F(ToolbarModelTest, NamesThePanelThatIsShown)
{
    EXPECT_EQ(model.content().panelText, u"Full Router"_s);
    EXPECT_EQ(model.content().panelSymbol, u"rectangle.grid.3x2"_s);
    SubPanel panel{.name = u"Gallery"_s, .sourceIndices = {0}, .destinationIndices = {0}};
    controller->savePanel(panel);
    controller->setActivePanelID(panel.id);
    EXPECT_EQ(model.content().panelText, u"Gallery"_s);
    EXPECT_EQ(model.content().panelSymbol, u"rectangle.grid.1x2"_s);
    panel.name = u"Studio"_s;
    controller->savePanel(panel);
    EXPECT_EQ(model.content().panelText, u"Studio"_s);
    controller->deletePanel(panel);
    EXPECT_EQ(model.content().panelText, u"Full Router"_s);
}

TEST_F(ToolbarModelTest, SwitchesBetweenTheGridAndTheList)
{
    EXPECT_EQ(ToolbarModel::viewModeTexts(), (QStringList{u"Crosspoint"_s, u"Dropdown"_s}));
    EXPECT_EQ(model.content().viewMode, 0);
    model.chooseViewMode(1);
    EXPECT_EQ(controller->viewMode(), RouteViewMode::list);
    EXPECT_EQ(model.content().viewMode, 1);
    model.chooseViewMode(0);
    EXPECT_EQ(controller->viewMode(), RouteViewMode::matrix);
}

TEST_F(ToolbarModelTest, DoesWithoutTextsWhereThereIsLittleRoom)
{
    struct Case {
        const char* name;
        double available;
        ToolbarFit fit;
    };
    const Case cases[] = {
        {"all", 500, {true, true}},
        {"the panel's alone", 499, {true, false}},
        {"just so", 400, {true, false}},
        {"none", 399, {false, false}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ToolbarModel::fit(c.available, 500, 100), c.fit) << c.name;
}

} // namespace

} // namespace corvane
