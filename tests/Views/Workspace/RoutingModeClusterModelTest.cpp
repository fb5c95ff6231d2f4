#include "Views/Workspace/RoutingModeClusterModel.h"
#include "ViewModelTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

/// What is chosen and what that is for: "Direct: Routes the moment…".
QString read(const RoutingModeClusterContent& content)
{
    QStringList lines{
        RoutingModeClusterModel::takeModeTexts().at(content.takeMode) + u": "_s + content.takeModeTip};
    if (content.showsDirection)
        lines.append(
            RoutingModeClusterModel::directionTexts().at(content.direction) + u": "_s + content.directionTip);
    return lines.join(u'\n');
}

using RoutingModeClusterModelTest = ViewModelTest<RoutingModeClusterModel>;

TEST_F(RoutingModeClusterModelTest, ChoosesWhatItNamesAndExplainsIt)
{
    const auto direct = u"Direct: Routes the moment you choose a source."_s;
    const auto take = u"Take: Stage a route, then press Take to cut it."_s;
    const auto xy = u"\nX-Y: Pick a destination, then a source."_s;
    const auto many = u"\n1 → Many: Pick a source, then tap destinations to send it to each."_s;
    using Mode = TakeMode;
    using Direction = RoutingDirection;
    struct Step {
        std::function<void()> happens;
        Mode mode;
        Direction direction;
        QString shown;
    };
    const Step steps[] = {
        {[] {}, Mode::immediate, Direction::destinationLed, direct},
        {[this] { model.chooseTakeMode(1); }, Mode::confirm, Direction::destinationLed, take},
        {[this] { controller->setViewMode(RouteViewMode::list); }, Mode::confirm, Direction::destinationLed,
            take + xy},
        {[this] { model.chooseDirection(1); }, Mode::confirm, Direction::sourceLed, take + many},
        {[this] { model.chooseTakeMode(0); }, Mode::immediate, Direction::sourceLed, direct + many},
        {[this] { model.chooseDirection(0); }, Mode::immediate, Direction::destinationLed, direct + xy},
    };
    for (const auto& step : steps) {
        step.happens();
        EXPECT_EQ(controller->takeMode(), step.mode);
        EXPECT_EQ(controller->routingDirection(), step.direction);
        EXPECT_EQ(read(model.content()), step.shown);
    }
}

} // namespace

} // namespace corvane
