#include "Controllers/SalvoDiff.h"

#include "support/ControllerTest.h"

namespace corvane {

namespace {

/// Five sources, six destinations, levels 0 and 2. What feeds destination 5 is unknown, and 3 and 4 are
/// locked.
RouterState smallRouter()
{
    auto state = matrix(5, 6);
    state.levels.append({2, {}, {}});
    state.routing[2] = state.routing[0];
    state.lockedDestinations = {3, 4};
    return state;
}

TEST(SalvoDiff, PutsEachRouteInExactlyOnePlace)
{
    // How many routes it puts into changes, unchanged, locked, lockedMismatched and missing.
    using Counts = std::array<qint64, 5>;
    struct Case {
        const char* name;
        Route route;
        Counts counts;
    };
    const Case cases[] = {
        {"routed otherwise", {0, 1, 2}, {1, 0, 0, 0, 0}},
        {"routed so", {0, 1, 1}, {0, 1, 0, 0, 0}},
        {"routed so on another level", {2, 1, 1}, {0, 1, 0, 0, 0}},
        {"not known where from", {0, 5, 0}, {1, 0, 0, 0, 0}},
        {"locked and routed so", {0, 3, 3}, {0, 0, 1, 0, 0}},
        {"locked and routed otherwise", {2, 4, 0}, {0, 0, 1, 1, 0}},
        {"last source", {0, 0, 4}, {1, 0, 0, 0, 0}},
        {"source past the end", {0, 0, 5}, {0, 0, 0, 0, 1}},
        {"source negative", {0, 0, -1}, {0, 0, 0, 0, 1}},
        {"destination past the end", {0, 6, 0}, {0, 0, 0, 0, 1}},
        {"destination negative", {0, -1, 0}, {0, 0, 0, 0, 1}},
        {"level between two", {1, 0, 0}, {0, 0, 0, 0, 1}},
    };
    Salvo salvo;
    for (const auto& c : cases) {
        salvo.routes = {c.route};
        const auto diff = SalvoDiff::between(salvo, smallRouter());
        EXPECT_EQ((Counts{diff.changes.size(), diff.unchanged, diff.locked.size(), diff.lockedMismatched,
                      diff.missing.size()}),
            c.counts)
            << c.name;
        EXPECT_EQ(SalvoDiff::applicableRoutes(salvo, smallRouter()).size(), c.counts[0] + c.counts[1])
            << c.name;
    }
    salvo.routes = {{0, 2, 0}, {0, 9, 0}, {0, 4, 1}, {0, 0, 1}};
    const SalvoDiff inOrder{{{0, 2, 0}, {0, 0, 1}}, 0, {{0, 4, 1}}, 1, {{0, 9, 0}}};
    EXPECT_EQ(SalvoDiff::between(salvo, smallRouter()), inOrder);
}

TEST(SalvoDiff, CapturesLevelByLevelWhatIsKnown)
{
    auto state = smallRouter();
    state.routing[2].remove(0);
    const QList<Route> wholeRouter{
        {0, 0, 0}, {0, 1, 1}, {0, 2, 2}, {0, 3, 3}, {0, 4, 4}, {2, 1, 1}, {2, 2, 2}, {2, 3, 3}, {2, 4, 4}};
    EXPECT_EQ(captureRoutes(state, std::nullopt), wholeRouter);
    SubPanel panel;
    panel.destinationIndices = {4, 0, 9, 5};
    EXPECT_EQ(captureRoutes(state, panel), (QList<Route>{{0, 4, 4}, {0, 0, 0}, {2, 4, 4}}));
}

} // namespace

} // namespace corvane
