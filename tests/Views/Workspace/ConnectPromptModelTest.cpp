#include "Views/Workspace/ConnectPromptModel.h"
#include "ViewModelTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

/// In the order in which it is read: "Offline, ! what went wrong, 50 % read, [bolt.fill Connect]".
QString read(const ConnectPromptContent& content)
{
    QStringList parts{content.status.word};
    if (!content.message.isEmpty())
        parts.append((content.isFailure ? u"! "_s : QString()) + content.message);
    if (content.showsProgress)
        parts.append(u"%1 (%2)"_s.arg(content.progressText).arg(content.progress));
    parts.append(u"[%1 %2]"_s.arg(content.buttonSymbol, content.buttonText));
    return parts.join(u", "_s);
}

class ConnectPromptModelTest : public ViewModelTest<ConnectPromptModel> {
protected:
    ConnectPromptModelTest()
    {
        router.name = u"Studio"_s;
        router.host = u"10.0.0.5"_s;
        controller = makeController();
    }
};

TEST_F(ConnectPromptModelTest, TellsWhichRouterThisIsAndHowItsConnectionFares)
{
    EXPECT_EQ(model.content().name, u"Studio"_s);
    EXPECT_EQ(model.content().address, u"Blackmagic Videohub · 10.0.0.5:9990"_s);

    const auto press = [this] { model.pressButton(); };
    const auto comes = [this](const RouterDriverEvent& event) { return [=, this] { report(event); }; };
    const auto progress = [this](std::optional<double> fraction) {
        return [=, this] { driver().reportProgress(fraction); };
    };
    struct Step {
        std::function<void()> happens;
        QString shown;
    };
    const Step steps[] = {
        {[] {}, u"Offline, [bolt.fill Connect]"_s},
        {press, u"Connecting…, [xmark Cancel]"_s},
        {comes(driverEvent::Status{u"Waiting for router… (Connection refused)"_s}),
            u"Connecting…, Waiting for router… (Connection refused), [xmark Cancel]"_s},
        {comes(driverEvent::Error{u"The router didn't answer within 12 seconds."_s}),
            u"Error, ! The router didn't answer within 12 seconds., [bolt.fill Connect]"_s},
        {comes(driverEvent::Disconnected{}),
            u"Offline, ! The router didn't answer within 12 seconds., [bolt.fill Connect]"_s},
        {press, u"Connecting…, [xmark Cancel]"_s},
        {progress(0.0), u"Connecting…, 0% read (0), [xmark Cancel]"_s},
        {progress(0.999), u"Connecting…, 99% read (0.999), [xmark Cancel]"_s},
        {progress(1.0), u"Connecting…, 100% read (1), [xmark Cancel]"_s},
        {progress(std::nullopt), u"Connecting…, [xmark Cancel]"_s},
        {progress(0.5), u"Connecting…, 50% read (0.5), [xmark Cancel]"_s},
        {press, u"Offline, [bolt.fill Connect]"_s},
        {[this] { connectTo(matrix(2, 2)); }, u"Online, [bolt.fill Connect]"_s},
        {comes(driverEvent::Disconnected{u"The router closed the connection."_s}),
            u"Offline, ! The router closed the connection., [bolt.fill Connect]"_s},
        {comes(driverEvent::Disconnected{}),
            u"Offline, ! The router closed the connection., [bolt.fill Connect]"_s},
    };
    for (const auto& step : steps) {
        step.happens();
        EXPECT_EQ(read(model.content()), step.shown);
    }
}

} // namespace

} // namespace corvane
