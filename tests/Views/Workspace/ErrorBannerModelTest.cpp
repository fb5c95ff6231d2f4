#include "Views/Workspace/ErrorBannerModel.h"
#include "ViewModelTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class ErrorBannerModelTest : public ControllerTest {
protected:
    void SetUp() override
    {
        connectTo(matrix(4, 4));
        model.setController(controller.get());
    }

    GlassKit theme{nullptr};
    ErrorBannerModel model{queue, theme};
};

TEST_F(ErrorBannerModelTest, GoesByItselfAfterFourSeconds)
{
    controller->setLastError(u"Out 1 is locked."_s);
    EXPECT_EQ(model.content(), (ErrorBannerContent{.isShown = true, .message = u"Out 1 is locked."_s}));
    queue.advance(3999ms);
    EXPECT_TRUE(model.content().isShown);
    queue.advance(1ms);
    EXPECT_FALSE(model.content().isShown);
    EXPECT_EQ(controller->lastError(), std::nullopt);
}

TEST_F(ErrorBannerModelTest, ASecondErrorIsShownForFourSecondsOfItsOwn)
{
    controller->setLastError(u"one"_s);
    queue.advance(3s);
    controller->setLastError(u"two"_s);
    queue.advance(3999ms);
    EXPECT_EQ(lastError(), u"two"_s);
    queue.advance(1ms);
    EXPECT_EQ(controller->lastError(), std::nullopt);
}

TEST_F(ErrorBannerModelTest, TheSameErrorAgainIsNoNewError)
{
    controller->setLastError(u"one"_s);
    queue.advance(3s);
    controller->setLastError(u"one"_s);
    queue.advance(1s);
    EXPECT_FALSE(model.content().isShown);
}

TEST_F(ErrorBannerModelTest, KeepsItsWordsWhileItLeaves)
{
    controller->setLastError(u"one"_s);
    model.dismiss();
    EXPECT_EQ(model.content(), (ErrorBannerContent{.isShown = false, .message = u"one"_s}));
}

TEST_F(ErrorBannerModelTest, AfterADismissalTheNextErrorHasItsFullTime)
{
    controller->setLastError(u"one"_s);
    queue.advance(3s);
    model.dismiss();
    controller->setLastError(u"two"_s);
    queue.advance(3999ms);
    EXPECT_TRUE(model.content().isShown);
}

TEST_F(ErrorBannerModelTest, IsGoneWithTheConnectionAndLeavesTheErrorAlone)
{
    controller->setLastError(u"one"_s);
    report(driverEvent::Disconnected{});
    EXPECT_FALSE(model.content().isShown);
    queue.advance(10s);
    EXPECT_EQ(lastError(), u"one"_s);
}

TEST_F(ErrorBannerModelTest, TheRouterMayGoBeforeTheBannerDoes)
{
    controller->setLastError(u"one"_s);
    controller.reset();
    queue.advance(10s);
    EXPECT_EQ(model.controller(), nullptr);
}

} // namespace

} // namespace corvane
