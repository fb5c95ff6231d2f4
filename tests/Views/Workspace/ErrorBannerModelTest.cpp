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

    void fail(const QString& message) { controller->setLastError(message); }

    /// Whether this is shown for another `left`, and then goes by itself.
    [[nodiscard]] testing::AssertionResult goesAfter(Duration left, const QString& message)
    {
        queue.advance(left - 1ms);
        if (model.message() != message)
            return testing::AssertionFailure() << "too early: " << model.message().toStdString();
        queue.advance(1ms);
        if (!model.message().isEmpty() || controller->lastError())
            return testing::AssertionFailure() << "still there: " << model.message().toStdString();
        return testing::AssertionSuccess();
    }

    GlassKit theme{nullptr};
    ErrorBannerModel model{queue, theme};
};

TEST_F(ErrorBannerModelTest, GoesByItselfAfterFourSecondsInWhichNobodyReadsIt)
{
    struct Case {
        const char* name;
        std::function<void()> happens;
        Duration left;
        QString message;
    };
    const Case cases[] = {
        {"an error", [this] { fail(u"one"_s); }, 4s, u"one"_s},
        {"the same again", [this] { fail(u"one"_s), queue.advance(3s), fail(u"one"_s); }, 1s, u"one"_s},
        {"another", [this] { fail(u"one"_s), queue.advance(3s), fail(u"two"_s); }, 4s, u"two"_s},
        {"after a dismissal", [this] { fail(u"one"_s), queue.advance(3s), model.dismiss(), fail(u"two"_s); },
            4s, u"two"_s},
        {"one that was read",
            [this] {
                fail(u"one"_s), queue.advance(3s), model.setBeingRead(true);
                queue.advance(1h), model.setBeingRead(true), model.setBeingRead(false);
            },
            4s, u"one"_s},
        {"one that came while another was read",
            [this] {
                fail(u"one"_s), model.setBeingRead(true), fail(u"two"_s);
                queue.advance(1h), model.setBeingRead(false);
            },
            4s, u"two"_s},
        {"after one that went while it was read",
            [this] { fail(u"one"_s), model.setBeingRead(true), model.dismiss(), fail(u"two"_s); }, 4s,
            u"two"_s},
    };
    for (const auto& c : cases) {
        c.happens();
        EXPECT_TRUE(goesAfter(c.left, c.message)) << c.name;
    }
}

TEST_F(ErrorBannerModelTest, IsGoneWithTheConnectionAndLeavesTheErrorAlone)
{
    fail(u"one"_s);
    report(driverEvent::Disconnected{});
    EXPECT_EQ(model.message(), QString());
    queue.advance(10s);
    EXPECT_EQ(lastError(), u"one"_s);
}

TEST_F(ErrorBannerModelTest, TheRouterMayGoBeforeTheBannerDoes)
{
    fail(u"one"_s);
    controller.reset();
    queue.advance(10s);
    EXPECT_EQ(model.controller(), nullptr);
}

} // namespace

} // namespace corvane
