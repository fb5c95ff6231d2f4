#include "Views/Grid/CrosspointGridModel.h"

#include "Theme/Tints.h"
#include "Views/Grid/GridFonts.h"
#include "support/ControllerTest.h"

#include <QFontMetricsF>

#include <cmath>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

class CrosspointGridModelTest : public ControllerTest {
protected:
    void show(const RouterState& state)
    {
        connectTo(state);
        model.setController(controller.get());
    }

    void stage(std::optional<qint64> destination, std::optional<qint64> source)
    {
        controller->setTakeMode(TakeMode::confirm);
        controller->setPendingDestination(destination);
        controller->setPendingSource(source);
    }

    void showPanel(const QList<qint64>& sources, const QList<qint64>& destinations)
    {
        const SubPanel panel{
            .name = u"Panel"_s, .sourceIndices = sources, .destinationIndices = destinations};
        controller->savePanel(panel);
        controller->setActivePanelID(panel.id);
    }

    GlassKit theme{nullptr};
    CrosspointGridModel model{theme};
};

RouterState withLabel(PortKind kind, const QString& label)
{
    RouterState state = matrix(2, 2);
    (kind == PortKind::source ? state.sources : state.destinations)[1].label = label;
    return state;
}

int widthOf(const QString& label, const QFont& font)
{
    return int(std::ceil(QFontMetricsF(font).horizontalAdvance(label)));
}

TEST_F(CrosspointGridModelTest, MakesRoomForTheWidestLabelWithinLimits)
{
    const QString middle = u"Studio monitor 4"_s;
    const struct {
        const char* name;
        QString label;
        int destWidth;
        int headerHeight;
    } cases[] = {
        {"short", u"A"_s, 138, 104},
        {"middle", middle, widthOf(middle, gridFonts::destinationLabel()) + 72,
            widthOf(middle, gridFonts::sourceLabel()) + 44},
        {"endless", QString(200, u'W'), 260, 230},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        show(withLabel(PortKind::destination, c.label));
        EXPECT_EQ(model.destWidth(), c.destWidth);
        EXPECT_EQ(model.headerHeight(), 104);
        report(driverEvent::StateReplaced{withLabel(PortKind::source, c.label)});
        EXPECT_EQ(model.headerHeight(), c.headerHeight);
        EXPECT_EQ(model.destWidth(), 138) << "the old labels no longer count";
    }
}

TEST(LabelWidths, MeasuresNoMoreOfALabelThanCouldBeDrawn)
{
    LabelWidths widths(gridFonts::sourceLabel());
    const auto width = [&](const QString& label) { return widths.widest({{0, PortKind::source, label}}); };
    EXPECT_EQ(width(QString(1 << 20, u'i')), width(QString(256, u'i')));
    EXPECT_GT(width(QString(256, u'i')), 230);
    EXPECT_EQ(visiblePart(QString(255, u'i') + u"😀😀"_s).size(), 255) << "no character is cut in two";
}

TEST_F(CrosspointGridModelTest, IsEmptyAndSmallWithoutARouter)
{
    EXPECT_EQ(model.destWidth(), 138);
    show(matrix(2, 2));
    controller.reset();
    EXPECT_EQ(model.controller(), nullptr);
    EXPECT_TRUE(model.sources().isEmpty());
    EXPECT_TRUE(model.destinations().isEmpty());
    EXPECT_EQ(model.destWidth(), 138);
    EXPECT_EQ(model.headerHeight(), 104);
}

TEST_F(CrosspointGridModelTest, GivesEachCellItsOwnLifeUpToTheLimit)
{
    const struct {
        qint64 sources;
        qint64 destinations;
        bool hoverEnabled;
    } cases[] = {{40, 40, true}, {41, 40, false}, {1, 1600, true}, {1, 1601, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.sources * c.destinations);
        show(matrix(c.sources, c.destinations));
        EXPECT_EQ(model.hoverEnabled(), c.hoverEnabled);
    }
}

TEST_F(CrosspointGridModelTest, LightsTheRowAndTheColumnOfAStagedTake)
{
    show(matrix(4, 4));
    stage(std::nullopt, 2);
    EXPECT_EQ(model.row(1).cellAt(2), CrosspointCell{}) << "a source with nowhere to go";
    EXPECT_FALSE(model.column(2).isArmed);
    stage(1, 2);
    EXPECT_TRUE(model.column(2).isArmed);
    EXPECT_FALSE(model.column(1).isArmed);
    const struct {
        const char* name;
        int row;
        int column;
        CrosspointCell cell;
    } cases[] = {
        {"the crossing", 1, 2, {.isPending = true, .highlighted = true}},
        {"connected, in the row", 1, 1, {.isConnected = true, .highlighted = true}},
        {"in the row", 1, 3, {.highlighted = true}},
        {"connected, in the column", 2, 2, {.isConnected = true, .highlighted = true}},
        {"in the column", 0, 2, {.highlighted = true}},
        {"elsewhere", 0, 1, {}},
        {"connected elsewhere", 3, 3, {.isConnected = true}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(model.row(c.row).cellAt(c.column), c.cell);
    }
}

TEST_F(CrosspointGridModelTest, NamesWhatFeedsADestination)
{
    RouterState state = matrix(3, 4);
    state.routing[0] = {{0, 2}, {1, -1}, {2, 3}};
    show(state);
    EXPECT_EQ(model.row(0).routedLabel, u"In 3"_s);
    EXPECT_EQ(model.row(1).routedLabel, u"—"_s) << "negative";
    EXPECT_EQ(model.row(2).routedLabel, u"—"_s) << "beyond the sources";
    EXPECT_EQ(model.row(3).routedLabel, u"—"_s) << "not routed";
    state.sources = {{7, PortKind::source, u"Seven"_s}, {0, PortKind::source, u"Zero"_s}};
    state.routing[0][0] = 0;
    show(state);
    EXPECT_EQ(model.row(0).routedLabel, u"Seven"_s) << "by its place in the list";
}

TEST_F(CrosspointGridModelTest, MarksAFeedFromOutsideThePanel)
{
    show(matrix(4, 4));
    EXPECT_FALSE(model.row(3).offPanelFeed) << "no panel";
    showPanel({0, 1}, {1, 3});
    ASSERT_EQ(model.destinations().size(), 2);
    EXPECT_FALSE(model.row(0).offPanelFeed) << "fed by a source of the panel";
    EXPECT_TRUE(model.row(1).offPanelFeed);
    EXPECT_EQ(model.row(1).routedLabel, u"In 4"_s);
    report(driverEvent::RouteChanged{0, 3, std::nullopt});
    EXPECT_FALSE(model.row(1).offPanelFeed) << "not fed at all";
}

TEST_F(CrosspointGridModelTest, HelpsAtHeadersWithTheSignalOrElseHowToRename)
{
    RouterState state = matrix(4, 1);
    state.inputStatus = {{1, {false, u"1080p"_s}}, {2, {true, std::nullopt}}, {3, {true, u"1080p"_s}}};
    show(state);
    const QString rename = u"Double-click to rename"_s;
    const struct {
        QString help;
        std::optional<bool> dot;
    } columns[] = {{rename, std::nullopt}, {u"No signal"_s, false}, {u"Signal present"_s, true},
        {u"Signal: 1080p"_s, true}};
    for (int column = 0; const auto& c : columns) {
        SCOPED_TRACE(column);
        EXPECT_EQ(model.column(column).signalPresent, c.dot);
        EXPECT_EQ(model.toolTip({GridPlace::header, column++}), c.help);
    }
    EXPECT_EQ(model.toolTip({0, GridPlace::header}), rename);
    EXPECT_EQ(model.toolTip({0, 0}), QString());
}

TEST_F(CrosspointGridModelTest, ShowsTheRoutesAndTheColourOfThePrimaryLevel)
{
    RouterState state = matrix(3, 3, 2);
    state.levels[1].kind = LevelKind::audio;
    state.routing[1][0] = 2;
    show(state);
    EXPECT_EQ(model.row(0).routedSource, 0);
    controller->setPrimaryLevel(1);
    EXPECT_EQ(model.row(0).routedSource, 2);
    EXPECT_EQ(model.tint(), model.palette().green);
}

TEST_F(CrosspointGridModelTest, TellsWhatAChangeTouches)
{
    using Seen = std::set<std::string>;
    Seen seen;
    const auto at = [&](const char* what) {
        return [&seen, what](int position) { seen.insert(what + std::to_string(position)); };
    };
    QObject::connect(&model, &CrosspointGridModel::rowChanged, &model, at("row "));
    QObject::connect(&model, &CrosspointGridModel::columnChanged, &model, at("column "));
    QObject::connect(&model, &CrosspointGridModel::contentChanged, &model, [&] { seen.insert("looks"); });
    QObject::connect(&model, &CrosspointGridModel::portsChanged, &model, [&] { seen.insert("ports"); });
    show(matrix(4, 4, 2));
    showPanel({1, 2, 3}, {2, 3});
    seen.clear();

    RouterState otherRoutes = matrix(4, 4, 2);
    otherRoutes.routing[0][2] = 3;
    struct Case {
        const char* name;
        std::function<void()> change;
        Seen seen;
    };
    const auto by = [this](RouterDriverEvent event) { return [this, event] { report(event); }; };
    const Case cases[] = {
        {"a tally", by(driverEvent::RouteChanged{0, 3, 1}), {"row 1"}},
        {"a tally of another level", by(driverEvent::RouteChanged{1, 3, 1}), {}},
        {"a tally of a hidden destination", by(driverEvent::RouteChanged{0, 0, 1}), {}},
        {"a lock", by(driverEvent::LockChanged{2, true}), {"row 0"}},
        {"a signal", by(driverEvent::InputStatusChanged{2, InputSignalStatus{}}), {"column 1"}},
        {"a hidden source's signal", by(driverEvent::InputStatusChanged{0, InputSignalStatus{}}), {}},
        {"a name", by(driverEvent::LabelChanged{PortKind::source, 1, u"Cam"_s}), {"looks"}},
        {"a hidden source's name, which may feed a row",
            by(driverEvent::LabelChanged{PortKind::source, 0, u"Off"_s}), {"looks"}},
        {"other routes", by(driverEvent::StateReplaced{otherRoutes}), {"looks"}},
        {"a staged destination", [this] { stage(2, std::nullopt); }, {"looks"}},
        {"another level", [this] { controller->setPrimaryLevel(1); }, {"looks"}},
        {"news that the grid doesn't show", [this] { controller->setLastError(u"Refused"_s); }, {}},
        {"another panel",
            [this] {
                showPanel({1, 2}, {2, 3});
            },
            {"ports"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        c.change();
        EXPECT_EQ(std::exchange(seen, {}), c.seen);
    }
}

} // namespace

} // namespace corvane
