#include "Drivers/InterrogatedMatrix.h"
#include "Drivers/ParserHarness.h"

#include <gmock/gmock.h>

#include <limits>

namespace corvane {

namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string beyond = "refused The device reports ports beyond the configured 3×2 — increase the matrix"
                           " size in this router's settings.";
const std::string unspoken =
    "error The device answered TCP but spoke no Babble — check the port and matrix size.";
const std::string ports = "connected \"Studio\" \"Babble 3×2\" [In 1|In 2|In 3] [Out 1|Out 2] routes";

/// A matrix whose clock the test moves, and what it had to say. No port number of its protocol passes 1000.
struct Picture : EventHarness {
    explicit Picture(const RouterConnection& router = studio(3, 2))
        : matrix(router, {u"Babble"_s, RouterVendor::lightware, 1000}, queue, events)
    {
    }

    /// The events of one delivery that holds these reports.
    Texts report(const QList<Route>& routes)
    {
        for (const auto& route : routes)
            matrix.report(route);
        matrix.flush();
        return settle();
    }

    InterrogatedMatrix matrix;
};

struct ConnectedPicture : Picture {
    ConnectedPicture()
    {
        report({{0, 0, 0}, {0, 1, 1}});
        EXPECT_THAT(wait(1s), ElementsAre(ports + " 0=0 1=1"));
    }
};

TEST(InterrogatedMatrix, TakesASecondOfSilenceForTheEndOfTheAnswers)
{
    Picture picture;
    picture.matrix.expectReports();
    EXPECT_THAT(picture.report({{0, 1, 2}}), IsEmpty());
    EXPECT_THAT(picture.wait(999ms), IsEmpty());
    EXPECT_THAT(picture.report({{0, 1, 2}}), IsEmpty()) << "a repeat counts as well";
    EXPECT_THAT(picture.wait(999ms), IsEmpty());
    EXPECT_THAT(picture.wait(1ms), ElementsAre(ports + " 1=2")) << "however few have answered";
    EXPECT_THAT(picture.wait(1h), IsEmpty());
}

TEST(InterrogatedMatrix, ReportsPortsVendorAndLevelAsTheControllerNeedsThem)
{
    Picture picture;
    std::optional<RouterState> state;
    RouterEventStream events;
    events.consume(picture.queue, {},
        [&](RouterDriverEvent&& event) { state = std::get<driverEvent::Connected>(event).state; });
    InterrogatedMatrix matrix(
        studio(3, 2), {u"Babble"_s, RouterVendor::lightware, 1000}, picture.queue, events);
    matrix.report({0, 1, 2});
    matrix.flush();
    picture.wait(1s);
    ASSERT_TRUE(state);
    EXPECT_EQ(state->vendor, RouterVendor::lightware);
    EXPECT_EQ(state->levels, (QList<RouterLevel>{{0, u"Video"_s, LevelKind::video}}));
    EXPECT_EQ(state->sources.at(2), (Port{2, PortKind::source, u"In 3"_s}));
    EXPECT_EQ(state->destinations.at(1), (Port{1, PortKind::destination, u"Out 2"_s}));
    EXPECT_EQ(state->routing, (QHash<qint64, LevelRouting>{{0, {{1, 2}}}}));
}

TEST(InterrogatedMatrix, TellsOnlyNewsAfterwards)
{
    struct Case {
        const char* name;
        QList<Route> reports;
        Texts events;
    };
    const Case cases[] = {
        {"a repeat", {{0, 1, 1}}, {}},
        {"a change", {{0, 1, 0}}, {"route 0:1=0"}},
        {"there and back", {{0, 1, 0}, {0, 1, 1}}, {"route 0:1=0", "route 0:1=1"}},
        {"a repeat on another level", {{3, 1, 1}}, {}},
        {"a change on another level", {{3, 1, 2}}, {"route 3:1=2"}},
        {"another level's change holds for all", {{3, 1, 2}, {0, 1, 2}, {0, 1, 1}},
            {"route 3:1=2", "route 0:1=1"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ConnectedPicture picture;
        EXPECT_EQ(picture.report(c.reports), c.events);
        EXPECT_THAT(picture.wait(1h), IsEmpty());
    }
}

TEST(InterrogatedMatrix, LearnsADestinationThatWasSilentAtFirst)
{
    Picture picture;
    picture.report({{0, 1, 2}});
    picture.wait(1s);
    EXPECT_THAT(picture.report({{0, 0, 0}, {0, 0, 0}}), ElementsAre("route 0:0=0"));
}

TEST(InterrogatedMatrix, DropsPortsBeyondItsSizeAndWarnsOnce)
{
    for (const Route& route : {Route{0, 2, 0}, Route{0, 0, 3}, Route{0, -1, 0}, Route{0, 0, -1},
             Route{0, std::numeric_limits<qint64>::max(), std::numeric_limits<qint64>::max()}}) {
        ConnectedPicture picture;
        EXPECT_TRUE(picture.matrix.report({0, 1, 2}));
        EXPECT_FALSE(picture.matrix.report(route));
        EXPECT_FALSE(picture.matrix.report(route));
        picture.matrix.flush();
        EXPECT_THAT(picture.settle(), ElementsAre("route 0:1=2", beyond));
    }
}

TEST(InterrogatedMatrix, DoesNotWaitForThePortsThatItDropped)
{
    Picture picture;
    picture.matrix.expectReports();
    EXPECT_THAT(picture.report({{0, 9, 0}}), ElementsAre(beyond));
    EXPECT_THAT(picture.wait(1h), IsEmpty()) << "it spoke, but told nothing that could be shown";
    picture.report({{0, 0, 0}});
    picture.wait(900ms);
    EXPECT_THAT(picture.report({{0, 9, 0}}), IsEmpty());
    EXPECT_THAT(picture.wait(100ms), ElementsAre(ports + " 0=0"));
}

TEST(InterrogatedMatrix, SaysAfterFiveSecondsThatTheDeviceDoesNotSpeakTheProtocol)
{
    Picture picture;
    picture.matrix.expectReports();
    EXPECT_THAT(picture.wait(4999ms), IsEmpty());
    EXPECT_THAT(picture.wait(1ms), ElementsAre(unspoken));
    EXPECT_THAT(picture.wait(1h), IsEmpty());
    picture.report({{0, 0, 0}});
    EXPECT_THAT(picture.wait(1s), ElementsAre(ports + " 0=0"));
}

TEST(InterrogatedMatrix, TakesTheSavedSizeWithinReason)
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
        EXPECT_EQ(picture.matrix.destinationCount(), c.asked);
        picture.report({{0, 1, 1}});
        EXPECT_THAT(picture.wait(1s),
            ElementsAre(
                testing::AllOf(testing::StartsWith("connected \"Studio\" \"Babble " + c.model + "\" [In 1|"),
                    testing::HasSubstr("|Out " + std::to_string(c.asked) + "] routes 1=1"))));
    }
}

TEST(InterrogatedMatrix, KeepsOneTimerHoweverManyReportsCome)
{
    Picture picture;
    for (int i = 0; i < 10000; ++i)
        picture.report({{0, i % 2, i % 3}});
    EXPECT_EQ(picture.queue.waitingCount(), 1U);
}

} // namespace

} // namespace corvane
