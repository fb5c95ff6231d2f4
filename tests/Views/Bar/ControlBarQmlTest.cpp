#include "QmlTest.h"
#include "Views/Bar/ControlBarModel.h"

#include <map>

namespace corvane {

namespace {

class ControlBarQmlTest : public QmlTest {
protected:
    void SetUp() override
    {
        connectTo(matrix(4, 4, 3));
        controller->setTakeMode(TakeMode::confirm);
        model.setController(controller.get());
    }

    /// The controls of the bar as they stand in its lines, "|" for a divider.
    [[nodiscard]] std::vector<std::string> lines() const
    {
        std::map<int, std::map<int, std::string>> found;
        for (const auto& [type, name] : {std::pair{"SegmentedPicker", "level"}, {"GlassButton", "button"},
                 {"HairLine", "|"}, {"MatrixZoomControl", "zoom"}, {"TakeCluster", "take"}})
            for (const QQuickItem* const item : items(type))
                if (item->isVisible()
                    && QByteArray(item->parentItem()->metaObject()->className()).startsWith("BarPart"))
                    found[static_cast<int>(centre(item).y() / 5)][static_cast<int>(centre(item).x())] = name;
        std::vector<std::string> lines;
        for (const auto& [y, parts] : found) {
            lines.emplace_back();
            for (const auto& [x, name] : parts)
                lines.back() += (lines.back().empty() ? "" : " ") + name;
        }
        return lines;
    }

    GlassKit theme{nullptr};
    MatrixZoom zoom;
    ControlBarModel model{theme, zoom};
};

TEST_F(ControlBarQmlTest, StandsInTheFirstOfItsThreeArrangementsThatFits)
{
    struct Case {
        const char* name;
        int width;
        RouteViewMode view;
        std::vector<std::string> lines;
    };
    const Case cases[] = {
        {"one line", 820, RouteViewMode::matrix, {"level button | zoom | take"}},
        {"two", 560, RouteViewMode::matrix, {"level button | zoom", "take"}},
        {"three", 400, RouteViewMode::matrix, {"button", "level zoom", "take"}},
        {"the levels cut", 260, RouteViewMode::matrix, {"button", "level zoom", "take"}},
        {"three without the zoom", 300, RouteViewMode::list, {"button", "level", "take"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        controller->setViewMode(c.view);
        // What is there at first is seen in its place at once.
        load(u"Bar/ControlBar.qml"_s, {c.width, 200}, {{u"model"_s, QVariant::fromValue(&model)}});
        EXPECT_EQ(lines(), c.lines);
        const auto* const bar = items("FloatingSurface").constFirst();
        EXPECT_LE(bar->width(), c.width);
        EXPECT_EQ(bar->height(), window.rootObject()->implicitHeight());
        window.setSource({});
    }
}

} // namespace

} // namespace corvane
