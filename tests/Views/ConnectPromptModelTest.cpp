#include "Views/ConnectPromptModel.h"
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

} // namespace

} // namespace corvane
