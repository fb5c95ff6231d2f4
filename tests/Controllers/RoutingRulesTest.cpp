#include "Controllers/RoutingRules.h"

#include <gtest/gtest.h>

namespace corvane {

namespace {

TEST(RoutingRules, ATakeSwitchesTheLevelsBrokenAwayOrAllOfThem)
{
    const QList<RouterLevel> levels{{2, {}, {}}, {0, {}, {}}, {1, {}, {}}};
    struct Case {
        const char* name;
        QSet<qint64> breakaway;
        QList<qint64> active;
    };
    const Case cases[] = {
        {"none broken away", {}, {2, 0, 1}},
        {"one", {1}, {1}},
        {"in the router's order", {0, 1, 2}, {2, 0, 1}},
        {"one that isn't the router's", {9}, {2, 0, 1}},
        {"one of each", {9, 0}, {0}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(routing::activeLevels(levels, c.breakaway), c.active) << c.name;
    EXPECT_TRUE(routing::activeLevels({}, {0}).isEmpty());
}

TEST(RoutingRules, ASourceClickAimsAtTheGangOrElseAtTheFocusedDestination)
{
    struct Case {
        const char* name;
        Selection selection;
        QList<qint64> targets;
    };
    const Case cases[] = {
        {"nothing", {}, {}},
        {"the focused one", {3, {}, {}}, {3}},
        {"the gang, ascending", {{}, {7, 2, 5}, {}}, {2, 5, 7}},
        {"the gang before the focused one", {3, {7, 2}, {}}, {2, 7}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(routing::targets(c.selection), c.targets) << c.name;
        for (qint64 destination = 0; destination < 10; ++destination)
            EXPECT_EQ(routing::isTarget(c.selection, destination), c.targets.contains(destination)) << c.name;
    }
}

TEST(RoutingRules, ATakeIsPendingOnceItHasASourceAndADestination)
{
    using enum RoutingDirection;
    struct Case {
        const char* name;
        Staging staging;
        std::optional<qint64> focusedSource;
        RoutingDirection direction;
        std::optional<PendingTake> pending;
    };
    const Case cases[] = {
        {"nothing", {}, 4, destinationLed, {}},
        {"destination only", {1, {}, {}}, 4, destinationLed, {}},
        {"source only", {{}, 3, {}}, 4, destinationLed, {}},
        {"one destination", {1, 3, {}}, 4, destinationLed, {{3, {1}}}},
        {"several, ascending", {{}, 3, {7, 2, 5}}, 4, destinationLed, {{3, {2, 5, 7}}}},
        {"several before one", {1, 3, {7, 2}}, 4, destinationLed, {{3, {2, 7}}}},
        {"several, no source staged", {{}, {}, {7, 2}}, 4, destinationLed, {}},
        {"source-led: the focused source", {{}, 3, {7, 2}}, 4, sourceLed, {{4, {2, 7}}}},
        {"source-led: no focus", {{}, 3, {7, 2}}, {}, sourceLed, {{3, {2, 7}}}},
        {"source-led: falls through", {1, 3, {}}, 4, sourceLed, {{3, {1}}}},
        {"source-led: no destination", {{}, {}, {}}, 4, sourceLed, {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(routing::pendingTake(c.staging, {0, {}, c.focusedSource}, c.direction), c.pending)
            << c.name;
}

TEST(RoutingRules, AGangTakesInTheFocusedDestinationAndNeverShrinksToOne)
{
    struct Case {
        const char* name;
        Selection before;
        qint64 toggled;
        Selection after;
    };
    const Case cases[] = {
        {"nothing focused", {{}, {}, 9}, 3, {3, {}, 9}},
        {"the focused one joins", {2, {}, 9}, 3, {3, {2, 3}, 9}},
        {"the focused one again", {2, {}, 9}, 2, {{}, {}, 9}},
        {"a third", {3, {2, 3}, {}}, 7, {7, {2, 3, 7}, {}}},
        {"a focus outside the gang", {9, {2, 3}, {}}, 7, {7, {2, 3, 7}, {}}},
        {"out of three", {7, {2, 3, 7}, {}}, 7, {2, {2, 3}, {}}},
        {"down to one", {3, {2, 3}, {}}, 2, {3, {}, {}}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(routing::toggledInGang(c.before, c.toggled), c.after) << c.name;
}

} // namespace

} // namespace corvane
