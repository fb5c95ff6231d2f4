#include "Views/Workspace/ConnectPromptModel.h"
#include "ViewModelTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

class ConnectPromptModelTest : public ViewModelTest<ConnectPromptModel> {
protected:
    ConnectPromptModelTest()
    {
        router.name = u"Studio"_s;
        router.host = u"10.0.0.5"_s;
        controller = makeController();
    }
};

TEST_F(ConnectPromptModelTest, TellsWhichRouterThisIsAndWhereItIs)
{
    EXPECT_EQ(model.content().name, u"Studio"_s);
    EXPECT_EQ(model.content().address, u"Blackmagic Videohub · 10.0.0.5:9990"_s);
    EXPECT_EQ(model.content().status.word, u"Offline"_s);
    EXPECT_EQ(model.content().failure, QString());
}

TEST_F(ConnectPromptModelTest, TheButtonConnectsUntilAnAttemptIsUnderWayAndThenCallsItOff)
{
    EXPECT_EQ(model.content().buttonText, u"Connect"_s);
    EXPECT_EQ(model.content().buttonSymbol, u"bolt.fill"_s);
    model.pressButton();
    EXPECT_EQ(controller->status(), ConnectionStatus(Connecting{}));

    EXPECT_EQ(model.content().buttonText, u"Cancel"_s);
    EXPECT_EQ(model.content().buttonSymbol, u"xmark"_s);
    model.pressButton();
    EXPECT_EQ(controller->status(), ConnectionStatus(Disconnected{}));
}

TEST_F(ConnectPromptModelTest, TellsWhyTheConnectionFailedAndOffersAnother)
{
    model.pressButton();
    report(driverEvent::Error{u"No route to host"_s});
    EXPECT_EQ(model.content().failure, u"No route to host"_s);
    EXPECT_EQ(model.content().buttonText, u"Connect"_s);
    model.pressButton();
    EXPECT_EQ(model.content().failure, QString());
    EXPECT_EQ(controller->status(), ConnectionStatus(Connecting{}));
}

TEST_F(ConnectPromptModelTest, ShowsHowFarTheReadingHasComeWhileThatIsKnown)
{
    EXPECT_FALSE(model.content().showsProgress);
    model.pressButton();
    EXPECT_FALSE(model.content().showsProgress);
    Tellings tellings(model, &ConnectPromptModel::contentChanged);
    struct Case {
        std::optional<double> fraction;
        bool isShown;
        double progress;
        QString text;
    };
    const Case cases[] = {
        {0.0, true, 0, u"0% read"_s},
        {0.999, true, 0.999, u"99% read"_s},
        {1.0, true, 1, u"100% read"_s},
        {std::nullopt, false, 0, QString()},
    };
    for (const auto& c : cases) {
        driver().reportProgress(c.fraction);
        EXPECT_EQ(model.content().showsProgress, c.isShown);
        EXPECT_EQ(model.content().progress, c.progress);
        EXPECT_EQ(model.content().progressText, c.text);
        EXPECT_EQ(tellings.count(), 1);
    }
    driver().reportProgress(0.5);
    model.pressButton();
    EXPECT_FALSE(model.content().showsProgress);
}

} // namespace

} // namespace corvane
