#include "support/ControllerTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

class MatrixControllerLifecycleTest : public ControllerTest { };

TEST_F(MatrixControllerLifecycleTest, StartsADriverOnlyOnceItsEventsAreFollowed)
{
    controller->connect();
    EXPECT_EQ(controller->status(), ConnectionStatus(Connecting{}));
    EXPECT_TRUE(driver().calls.empty());
    driver().report(driverEvent::Status{u"Reading…"_s});
    queue.runReady();
    EXPECT_THAT(told(), ElementsAre("connect"));
    EXPECT_EQ(controller->statusMessage(), u"Reading…"_s);
}

TEST_F(MatrixControllerLifecycleTest, ConnectingAnewDropsTheOldDriverAndWhateverItStillSays)
{
    connectTo(matrix(4, 4));
    const auto old = drivers.front();
    old->report(driverEvent::Error{u"too late"_s});
    controller->setPendingSource(2);
    controller->setLastError(u"before"_s);
    controller->connect();
    old->report(driverEvent::StateReplaced{matrix(1, 1)});
    queue.runReady();

    EXPECT_THAT(old->calls, ElementsAre("disconnect"));
    EXPECT_EQ(controller->status(), ConnectionStatus(Connecting{}));
    EXPECT_EQ(controller->lastError(), std::nullopt);
    EXPECT_FALSE(controller->hasStaging());
    EXPECT_EQ(controller->state().sources.size(), 4);

    report(driverEvent::Connected{matrix(2, 2)});
    EXPECT_TRUE(controller->isConnected());
    EXPECT_EQ(controller->state().sources.size(), 2);
}

TEST_F(MatrixControllerLifecycleTest, DisconnectingTellsTheDriverTwiceAndKeepsTheLastPicture)
{
    connectTo(matrix(4, 4));
    report(driverEvent::Status{u"Live"_s});
    controller->disconnect();
    driver().report(driverEvent::Disconnected{u"Bye"_s});
    EXPECT_THAT(told(), ElementsAre("disconnect", "disconnect"));
    EXPECT_EQ(controller->status(), ConnectionStatus(Disconnected{}));
    EXPECT_TRUE(controller->statusMessage().isEmpty());
    EXPECT_EQ(controller->state().sources.size(), 4);

    controller->disconnect();
    EXPECT_TRUE(told().empty());
}

TEST_F(MatrixControllerLifecycleTest, TellsHowFarTheDriverHasReadAndForgetsItWithTheDriver)
{
    Telling telling(*controller, &MatrixController::readingProgressChanged);
    controller->connect();
    EXPECT_EQ(controller->readingProgress(), std::nullopt);
    const auto old = drivers.front();
    old->reportProgress(0.25);
    old->reportProgress(0.25);
    EXPECT_EQ(controller->readingProgress(), 0.25);
    EXPECT_EQ(telling.count(), 1);

    controller->connect();
    old->reportProgress(0.5);
    EXPECT_EQ(controller->readingProgress(), std::nullopt);
    EXPECT_EQ(telling.count(), 1);
    driver().reportProgress(1);
    driver().reportProgress(std::nullopt);
    EXPECT_EQ(controller->readingProgress(), std::nullopt);
    EXPECT_EQ(telling.count(), 2);

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
    driver().failure = DriverError::notConnected();
    controller->take(1, 1);
    controller.reset();
    EXPECT_FALSE(watched.expired());
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
