#include "Views/Workspace/DeviceHeaderModel.h"
#include "ViewModelTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

using DeviceHeaderModelTest = ViewModelTest<DeviceHeaderModel>;

TEST_F(DeviceHeaderModelTest, TellsTheModelTheSizeAndTheLevelThatAreShown)
{
    const auto read = [this] { return model.content().title + u", "_s + model.content().specs; };
    EXPECT_EQ(read(), u"Blackmagic Videohub, 0 in × 0 out · L1"_s);
    auto state = matrix(16, 8, 2);
    state.model = u"Smart Videohub 12×12"_s;
    connectTo(state);
    EXPECT_EQ(read(), u"Smart Videohub 12×12, 16 in × 8 out · Level 0"_s);
    controller->setPrimaryLevel(1);
    EXPECT_EQ(read(), u"Smart Videohub 12×12, 16 in × 8 out · Level 1"_s);
    // The 99 is a port that this router doesn't have.
    const SubPanel panel{.name = u"Gallery"_s, .sourceIndices = {0, 3, 99}, .destinationIndices = {1}};
    controller->savePanel(panel);
    controller->setActivePanelID(panel.id);
    EXPECT_EQ(read(), u"Smart Videohub 12×12, Gallery · 2 of 16 in × 1 of 8 out · Level 1"_s);
}

TEST_F(DeviceHeaderModelTest, SaysNothingNewWhenOnlyTrafficPassed)
{
    connectTo(matrix(4, 4));
    Tellings tellings(model, &DeviceHeaderModel::contentChanged);
    report(driverEvent::RouteChanged{0, 2, 1});
    controller->toggleLock(1);
    controller->focusDestination(3);
    EXPECT_EQ(tellings.count(), 0);
}

} // namespace

} // namespace corvane
