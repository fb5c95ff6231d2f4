#include "Drivers/Interrogating/InterrogatingParser.h"
#include "Drivers/ParserHarness.h"

#include <limits>

namespace corvane {

namespace {

const std::string beyond = "refused The device reports ports beyond the configured 3×2 — increase the matrix"
                           " size in this router's settings.";
const std::string unspoken =
    "error The device answered TCP but spoke no Babble — check the port and matrix size.";
const std::string ports =
    "connected lightware \"Studio\" \"Babble 3×2\" [In 1|In 2|In 3] [Out 1|Out 2] routes";

/// A protocol whose deliveries do what the test says. No port number of it passes 1000.
class BabbleParser final : public InterrogatingParser {
public:
    BabbleParser(const RouterConnection& connection, SerialQueue& queue, const RouterEventStream& events)
        : InterrogatingParser(connection, {u"Babble"_s, RouterVendor::lightware, 1000}, queue, events)
    {
    }

    using InterrogatingParser::report;
    using InterrogatingParser::reportNothing;
    using InterrogatingParser::reread;

    QByteArray commandFor(const Route& /*route*/) override { return {}; }

    std::function<void()> delivery;

protected:
    void read(std::string_view /*bytes*/) override { delivery(); }
    void interrogate(qint64 destination) override { say(QByteArray::number(destination) + '?'); }
    void pictureTaken() override { say("!"); }
};

struct Picture : InterrogatingParserHarness<BabbleParser> {
    explicit Picture(const RouterConnection& router = studio(3, 2)) : InterrogatingParserHarness(router) { }

    Texts deliver(std::function<void()> delivery)
    {
        parser.delivery = std::move(delivery);
        return hear("x");
    }

    /// The events of one delivery that holds these reports. Source -1 stands for nothing.
    Texts report(const QList<Route>& routes)
    {
        return deliver([&] {
            for (const auto& route : routes) {
                if (route.source == -1)
                    parser.reportNothing(route.level, route.destination);
                else
                    parser.report(route);
            }
        });
    }
};

struct ConnectedPicture : Picture {
    ConnectedPicture()
    {
        report({{0, 0, 0}, {0, 1, 1}});
        EXPECT_THAT(wait(1s), ElementsAre(ports + " 0=0 1=1"));
        EXPECT_EQ(takeSent(), "!");
    }
};

TEST(InterrogatingParser, TakesASecondOfSilenceForTheEndOfTheAnswers)
{
    Picture picture;
    picture.parser.begin();
    EXPECT_EQ(picture.takeSent(), "0?1?");
    EXPECT_THAT(picture.report({{0, 1, 2}, {0, 0, -1}}), IsEmpty());
    EXPECT_THAT(picture.wait(999ms), IsEmpty());
    EXPECT_THAT(picture.report({{0, 1, 2}}), IsEmpty()) << "a repeat counts as well";
    EXPECT_THAT(picture.wait(999ms), IsEmpty());
    EXPECT_THAT(picture.wait(1ms), ElementsAre(ports + " 1=2")) << "however few have answered";
    EXPECT_EQ(picture.takeSent(), "!");
    EXPECT_THAT(picture.wait(1h), IsEmpty());
}

TEST(InterrogatingParser, WaitsNoLongerThanFiveSecondsForABusyRouter)
{
    Picture picture;
    picture.parser.begin();
    picture.wait(3s);
    Texts events;
    for (int turn = 0; turn < 6; ++turn) {
        EXPECT_THAT(picture.report({{0, turn % 2, turn % 3}}), IsEmpty());
        events = picture.wait(turn < 5 ? 900ms : 499ms);
        EXPECT_THAT(events, IsEmpty()) << turn;
    }
    EXPECT_THAT(picture.wait(1ms), ElementsAre(ports + " 0=1 1=2"));
    EXPECT_THAT(picture.report({{0, 0, 2}}), ElementsAre("route 0:0=2"));
    EXPECT_THAT(picture.wait(1h), IsEmpty());
}

TEST(InterrogatingParser, TellsOnlyNewsAfterwards)
{
    struct Case {
        const char* name;
        QList<Route> reports;
        Texts events;
    };
    const Case cases[] = {
        {"a repeat", {{0, 1, 1}}, {}},
        {"a change", {{0, 1, 0}}, {"route 0:1=0"}},
        {"the last source", {{0, 1, 2}}, {"route 0:1=2"}},
        {"there and back", {{0, 1, 0}, {0, 1, 1}}, {"route 0:1=0", "route 0:1=1"}},
        {"a repeat on another level", {{3, 1, 1}}, {}},
        {"a change on another level", {{3, 1, 2}}, {"route 3:1=2"}},
        {"another level's change holds for all", {{3, 1, 2}, {0, 1, 2}, {0, 1, 1}},
            {"route 3:1=2", "route 0:1=1"}},
        {"nothing, twice", {{2, 1, -1}, {2, 1, -1}, {0, 1, 1}}, {"route 2:1=none", "route 0:1=1"}},
        {"nothing on a port beyond the size", {{0, 2, -1}}, {beyond}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ConnectedPicture picture;
        EXPECT_EQ(picture.report(c.reports), c.events);
        EXPECT_THAT(picture.wait(1h), IsEmpty());
    }
}

TEST(InterrogatingParser, TellsWhatItReadsAgainEvenIfItIsNoNews)
{
    struct Case {
        const char* name;
        QList<Route> reports;
        Texts events;
        /// What is told when no answer has come for a second.
        Texts eventsAfterwards;
    };
    const Case cases[] = {
        {"what was known", {{0, 1, 1}}, {"route 0:1=1"}, {}},
        {"once", {{0, 1, 1}, {0, 1, 1}}, {"route 0:1=1"}, {}},
        {"something else", {{0, 1, 2}, {0, 1, 2}}, {"route 0:1=2"}, {}},
        {"nothing", {{0, 1, -1}, {0, 1, 1}}, {"route 0:1=none", "route 0:1=1"}, {}},
        {"a source that can't be shown", {{0, 1, 3}, {0, 1, 1}}, {beyond, "route 0:1=none", "route 0:1=1"},
            {}},
        {"another destination", {{0, 0, 0}}, {}, {"route 0:1=1"}},
        {"another destination's news", {{0, 0, 1}}, {"route 0:0=1"}, {"route 0:1=1"}},
        {"no answer", {}, {}, {"route 0:1=1"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ConnectedPicture picture;
        picture.deliver([&] { picture.parser.reread(1); });
        EXPECT_EQ(picture.takeSent(), "1?");
        EXPECT_EQ(picture.report(c.reports), c.events);
        EXPECT_THAT(picture.wait(999ms), IsEmpty());
        EXPECT_EQ(picture.wait(1ms), c.eventsAfterwards);
        EXPECT_THAT(picture.report({{0, 0, 2}, {0, 0, 2}}), ElementsAre("route 0:0=2"));
        EXPECT_THAT(picture.wait(1h), IsEmpty());
    }
}

TEST(InterrogatingParser, ReadsAgainWhatCouldNotBeSent)
{
    Picture picture;
    picture.report({{0, 1, 2}});
    picture.parser.commandNotSent(1);
    EXPECT_EQ(picture.takeSent(), "1?");
    EXPECT_THAT(picture.wait(1s), ElementsAre(ports + " 1=2")) << "which tells of it too";
    picture.parser.commandNotSent(0);
    EXPECT_THAT(picture.wait(1s), ElementsAre("route 0:0=none")) << "for nothing was ever told of it";
    picture.parser.commandNotSent(2);
    EXPECT_EQ(picture.takeSent(), "!0?2?");
    EXPECT_THAT(picture.wait(1h), IsEmpty()) << "for there is no such port";
}

TEST(InterrogatingParser, SaysNothingMoreWhenItsLinkHasEnded)
{
    ConnectedPicture whole;
    whole.deliver([&] { whole.parser.reread(1); });
    whole.takeSent();
    whole.parser.end();
    whole.parser.commandNotSent(0);
    EXPECT_THAT(whole.wait(1h), IsEmpty());
    EXPECT_EQ(whole.takeSent(), "");
}

TEST(InterrogatingParser, DropsPortsBeyondItsSizeAndWarnsOnce)
{
    for (const Route& route : {Route{0, 2, 0}, Route{0, 0, 3}, Route{0, -1, 0}, Route{0, 0, -1},
             Route{0, std::numeric_limits<qint64>::max(), std::numeric_limits<qint64>::max()}}) {
        ConnectedPicture picture;
        const auto events = picture.deliver([&] {
            EXPECT_TRUE(picture.parser.report({0, 1, 2}));
            EXPECT_FALSE(picture.parser.report(route));
            EXPECT_FALSE(picture.parser.report(route));
        });
        EXPECT_THAT(events, ElementsAre("route 0:1=2", beyond));
    }
}

TEST(InterrogatingParser, DoesNotWaitForThePortsThatItDropped)
{
    Picture picture;
    picture.parser.begin();
    EXPECT_THAT(picture.report({{0, 9, 0}}), ElementsAre(beyond));
    EXPECT_THAT(picture.wait(1h), IsEmpty()) << "it spoke, but told nothing that could be shown";
    picture.report({{0, 0, 0}});
    picture.wait(900ms);
    EXPECT_THAT(picture.report({{0, 9, 0}}), IsEmpty());
    EXPECT_THAT(picture.wait(100ms), ElementsAre(ports + " 0=0"));
}

TEST(InterrogatingParser, SaysAfterFiveSecondsThatTheDeviceDoesNotSpeakTheProtocol)
{
    Picture picture;
    picture.parser.begin();
    EXPECT_THAT(picture.wait(4999ms), IsEmpty());
    EXPECT_THAT(picture.wait(1ms), ElementsAre(unspoken));
    EXPECT_THAT(picture.wait(1h), IsEmpty());
    picture.report({{0, 0, 0}});
    EXPECT_THAT(picture.wait(1s), ElementsAre(ports + " 0=0"));

    Picture empty;
    empty.parser.begin();
    empty.report({{0, 0, -1}});
    EXPECT_THAT(empty.wait(1h), ElementsAre(ports)) << "which is a word too";
}

TEST(InterrogatingParser, TakesTheSavedSizeWithinReason)
{
    constexpr auto most = std::numeric_limits<qint64>::max();
    struct Case {
        qint64 sources;
        qint64 destinations;
        std::string model;
        qint64 asked;
    };
    const Case cases[] = {
        {3, 5, "3×5", 5},
        {0, 1, "2×2", 2},
        {-1, std::numeric_limits<qint64>::min(), "2×2", 2},
        {1001, 999, "1000×999", 999},
        {most, most, "1000×1000", 1000},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.model);
        Picture picture(studio(c.sources, c.destinations));
        picture.parser.begin();
        EXPECT_EQ(std::ranges::count(picture.takeSent(), '?'), c.asked);
        EXPECT_EQ(picture.sends, 1);
        picture.report({{0, 1, 1}});
        EXPECT_THAT(picture.wait(1s),
            ElementsAre(testing::AllOf(testing::HasSubstr(" \"Babble " + c.model + "\" [In 1|"),
                testing::HasSubstr("|Out " + std::to_string(c.asked) + "] routes 1=1"))));
    }
}

} // namespace

} // namespace corvane
