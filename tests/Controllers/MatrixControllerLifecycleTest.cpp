#include "support/ControllerTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

class MatrixControllerLifecycleTest : public ControllerTest { };

TEST_F(MatrixControllerLifecycleTest, StartsADriverOnlyOnceItsEventsAreFollowed)
{
    controller->connect();
    EXPECT_EQ(controller->status(), ConnectionStatus(Connecting{}));
    EXPECT_THAT(driver().calls, IsEmpty());
    driver().report(driverEvent::Status{u"Reading…"_s});
    queue.runReady();
    EXPECT_THAT(told(), ElementsAre("connect"));
    EXPECT_EQ(controller->statusMessage(), u"Reading…"_s);
}

TEST_F(MatrixControllerLifecycleTest, ReconnectingKeepsWhatTheOperatorSetAndDropsWhatIsStaged)
{
    SubPanel panel;
    panel.sourceIndices = {0, 1, 2};
    panel.destinationIndices = {0, 1, 2};
    controller->savePanel(panel);
    controller->setActivePanelID(panel.id);
    connectTo(matrix(4, 4, 2));
    controller->setViewMode(RouteViewMode::list);
    controller->setTakeMode(TakeMode::confirm);
    controller->setPrimaryLevel(1);
    controller->setBreakawayLevels({1});
    controller->setMultiSelectMode(true);
    controller->saveSalvo(u"Morning"_s, {});
    for (const qint64 destination : {1, 2})
        controller->toggleDestinationInGang(destination);
    controller->focusSource(2);
    controller->chooseSource(1);
    controller->beginRename(PortKind::source, 1);
    report(driverEvent::Status{u"Live"_s});
    controller->setLastError(u"before"_s);
    report(driverEvent::Disconnected{u"Gone"_s});
    const auto old = drivers.back();
    auto expected = snapshot(*controller);

    controller->connect();
    expected.status = Connecting{};
    expected.operatorState.staging = {};
    expected.lastError.reset();
    expected.connectionFailure.clear();
    EXPECT_EQ(snapshot(*controller), expected);
    EXPECT_EQ(controller->statusMessage(), u"Gone"_s);

    old->report(driverEvent::StateReplaced{matrix(1, 1)});
    queue.runReady();
    EXPECT_THAT(old->calls, ElementsAre("disconnect"));
    EXPECT_EQ(snapshot(*controller), expected);
    report(driverEvent::Connected{matrix(4, 5, 2)});
    expected.status = Connected{};
    expected.statusMessage.clear();
    expected.state = matrix(4, 5, 2);
    EXPECT_EQ(snapshot(*controller), expected);
}

TEST_F(MatrixControllerLifecycleTest, DisconnectingTellsTheDriverTwiceAndKeepsTheLastPicture)
{
    connectTo(matrix(4, 4));
    report(driverEvent::Status{u"Live"_s});
    controller->setPendingSource(2);
    auto expected = snapshot(*controller);
    controller->disconnect();
    driver().report(driverEvent::Disconnected{u"Bye"_s});
    EXPECT_THAT(told(), ElementsAre("disconnect", "disconnect"));
    expected.status = Disconnected{};
    expected.statusMessage.clear();
    expected.operatorState.staging = {};
    EXPECT_EQ(snapshot(*controller), expected);
    controller->disconnect();
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(MatrixControllerLifecycleTest, ShowsHowFarTheDriverHasReadAndForgetsItWithTheDriver)
{
    controller->connect();
    SignalLog log(*controller);
    EXPECT_EQ(controller->readingProgress(), std::nullopt);
    const auto old = drivers.front();
    old->reportProgress(0.25);
    old->reportProgress(0.25);
    EXPECT_EQ(controller->readingProgress(), 0.25);
    EXPECT_THAT(log.taken(), ElementsAre("changed"));

    controller->connect();
    old->reportProgress(0.5);
    EXPECT_EQ(controller->readingProgress(), std::nullopt);
    driver().reportProgress(1);
    driver().reportProgress(std::nullopt);
    EXPECT_EQ(controller->readingProgress(), std::nullopt);
    EXPECT_THAT(log.taken(), ElementsAre("changed", "changed", "changed"));

    driver().reportProgress(0.75);
    controller->disconnect();
    driver().reportProgress(0.8);
    EXPECT_EQ(controller->readingProgress(), std::nullopt);
    controller.reset();
    driver().reportProgress(0.9);
}

TEST_F(MatrixControllerLifecycleTest, IsHeldByItsCommandsButNotByItsEvents)
{
    connectTo(matrix(4, 4));
    const std::weak_ptr<MatrixController> watched = controller;
    driver().failWith(DriverError::notConnected());
    controller->take(1, 1);
    controller.reset();
    EXPECT_FALSE(watched.expired());
    driver().report(driverEvent::LabelChanged{PortKind::source, 1, u"CAM"_s});
    queue.runReady();
    EXPECT_TRUE(watched.expired());
    report(driverEvent::RouteChanged{0, 1, 1});
}

TEST_F(MatrixControllerLifecycleTest, NamesALevelByItsIndex)
{
    auto state = matrix(1, 1);
    state.levels = {{3, u"Audio"_s, LevelKind::audio}};
    connectTo(state);
    EXPECT_EQ(controller->levelName(3), u"Audio"_s);
    EXPECT_EQ(controller->levelName(0), u"L1"_s);
}

} // namespace

} // namespace corvane
