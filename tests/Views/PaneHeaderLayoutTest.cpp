#include "Views/PaneHeaderLayout.h"

#include <gtest/gtest.h>

namespace corvane {

namespace {

// The dot and the room before each thing: 9 + 8 + 80 + 8 + 60 + 8 + 30 + 8 + 150
constexpr PaneHeaderParts destinations{.title = 80,
    .subtitle = 60,
    .count = 30,
    .labelledActions = 150,
    .iconActions = 60,
    .subtitleIsPriority = true};
constexpr PaneHeaderParts sources{.title = 60, .subtitle = 300, .count = 30};

TEST(PaneHeaderLayout, ShowsTheFirstOfThreeThatFits)
{
    struct Case {
        const char* name;
        PaneHeaderParts parts;
        double width;
        PaneHeaderFit fit;
    };
    const Case cases[] = {
        {"everything", destinations, 361, {true, true, true, 60}},
        {"symbols alone", destinations, 360, {true, true, false, 60}},
        {"just so", destinations, 271, {true, true, false, 60}},
        {"no count", destinations, 270, {true, false, false, 60}},
        {"no count, just so", destinations, 233, {true, false, false, 60}},
        {"no title", destinations, 232, {false, false, false, 60}},
        {"no title but labels",
            {.title = 300,
                .subtitle = 60,
                .labelledActions = 100,
                .iconActions = 28,
                .subtitleIsPriority = true},
            200, {false, false, true, 60}},
        {"nearly nothing", destinations, 120, {false, false, false, 35}},
        {"nothing", destinations, 0, {false, false, false, 0}},
        {"a subtitle that gives way", sources, 200, {true, true, true, 77}},
        {"a subtitle cut to nothing", sources, 150, {true, true, true, 0}},
        {"a whole subtitle", sources, 423, {true, true, true, 300}},
        {"a whole subtitle without its title", {.title = 200, .subtitle = 60}, 100, {false, false, true, 60}},
        {"no subtitle", {.title = 80, .count = 30}, 300, {true, true, true, 0}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(fitPaneHeader(c.parts, c.width), c.fit);
    }
}

TEST(PaneHeaderLayout, NeverShowsMoreThanThereIsRoomFor)
{
    for (const auto& parts : {destinations, sources}) {
        // Below this the actions alone are too wide.
        for (double width = 80; width < 500; ++width) {
            SCOPED_TRACE(width);
            const auto fit = fitPaneHeader(parts, width);
            const auto taken = [](double part) { return part > 0 ? 8 + part : 0; };
            EXPECT_LE(9 + taken(fit.showsTitle ? parts.title : 0) + taken(fit.subtitleWidth)
                    + taken(fit.showsCount ? parts.count : 0)
                    + taken(fit.showsLabels ? parts.labelledActions : parts.iconActions),
                width);
        }
    }
}

} // namespace

} // namespace corvane
