#include "Views/Workspace/RoutingModeClusterModel.h"
#include "ViewModelTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

using RoutingModeClusterModelTest = ViewModelTest<RoutingModeClusterModel>;

TEST_F(RoutingModeClusterModelTest, ChoosesWhatItNamesAndExplainsIt)
{
    struct Case {
        QString text;
        TakeMode mode;
        QString tip;
    };
    const Case cases[] = {
        {u"Take"_s, TakeMode::confirm, u"Stage a route, then press Take to cut it."_s},
        {u"Direct"_s, TakeMode::immediate, u"Routes the moment you choose a source."_s},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text.toStdString());
        const auto position = RoutingModeClusterModel::takeModeTexts().indexOf(c.text);
        model.chooseTakeMode(static_cast<int>(position));
        EXPECT_EQ(controller->takeMode(), c.mode);
        EXPECT_EQ(model.content().takeMode, position);
        EXPECT_EQ(model.content().takeModeTip, c.tip);
    }
}

TEST_F(RoutingModeClusterModelTest, ChoosesTheDirectionItNamesAndExplainsIt)
{
    struct Case {
        QString text;
        RoutingDirection direction;
        QString tip;
    };
    const Case cases[] = {
        {u"1 → Many"_s, RoutingDirection::sourceLed,
            u"Pick a source, then tap destinations to send it to each."_s},
        {u"X-Y"_s, RoutingDirection::destinationLed, u"Pick a destination, then a source."_s},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text.toStdString());
        const auto position = RoutingModeClusterModel::directionTexts().indexOf(c.text);
        model.chooseDirection(static_cast<int>(position));
        EXPECT_EQ(controller->routingDirection(), c.direction);
        EXPECT_EQ(model.content().direction, position);
        EXPECT_EQ(model.content().directionTip, c.tip);
    }
}

TEST_F(RoutingModeClusterModelTest, TheDirectionMattersInTheListOnly)
{
    EXPECT_FALSE(model.content().showsDirection);
    controller->setViewMode(RouteViewMode::list);
    EXPECT_TRUE(model.content().showsDirection);
}

} // namespace

} // namespace corvane
