#include "Views/CrosspointGridModel.h"

#include "Theme/Tints.h"
#include "Views/GridFonts.h"
#include "support/ControllerTest.h"

#include <QFontMetricsF>

#include <cmath>

namespace corvane {

namespace {

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
            .name = QStringLiteral("Panel"), .sourceIndices = sources, .destinationIndices = destinations};
        controller->savePanel(panel);
        controller->setActivePanelID(panel.id);
    }

    CrosspointGridModel model;
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
    const QString middle = QStringLiteral("Studio monitor 4");
    const struct {
        const char* name;
        QString label;
        int destWidth;
        int headerHeight;
    } cases[] = {
        {"short", QStringLiteral("A"), 138, 104},
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

TEST_F(CrosspointGridModelTest, IsEmptyAndSmallWithoutAController)
{
    EXPECT_TRUE(model.sources().isEmpty());
    EXPECT_EQ(model.destWidth(), 138);
    EXPECT_EQ(model.headerHeight(), 104);
    EXPECT_EQ(model.tint(), model.palette().accent);
}

TEST_F(CrosspointGridModelTest, ForgetsAControllerThatIsGone)
{
    show(matrix(2, 2));
    controller.reset();
    EXPECT_EQ(model.controller(), nullptr);
    EXPECT_TRUE(model.destinations().isEmpty());
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

TEST_F(CrosspointGridModelTest, ArmsASourceOnlyWhenItHasSomewhereToGo)
{
    show(matrix(4, 4));
    stage(std::nullopt, 2);
    EXPECT_EQ(model.armedSource(), std::nullopt);
    EXPECT_EQ(model.row(1).cellAt(2), CrosspointCell{});
    stage(1, 2);
    EXPECT_EQ(model.armedSource(), 2);
    EXPECT_TRUE(model.column(2).isArmed);
    EXPECT_FALSE(model.column(1).isArmed);
    stage(1, std::nullopt);
    EXPECT_EQ(model.armedSource(), std::nullopt);
}

TEST_F(CrosspointGridModelTest, LightsTheRowAndTheColumnOfAStagedTake)
{
    show(matrix(4, 4));
    stage(1, 2);
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
    EXPECT_EQ(model.row(0).routedLabel, QStringLiteral("In 3"));
    EXPECT_EQ(model.row(1).routedLabel, QStringLiteral("—")) << "negative";
    EXPECT_EQ(model.row(2).routedLabel, QStringLiteral("—")) << "beyond the sources";
    EXPECT_EQ(model.row(3).routedLabel, QStringLiteral("—")) << "not routed";
}

TEST_F(CrosspointGridModelTest, LooksUpTheFeedsNameByItsPlaceInTheList)
{
    RouterState state = matrix(2, 1);
    state.sources = {
        {7, PortKind::source, QStringLiteral("Seven")}, {0, PortKind::source, QStringLiteral("Zero")}};
    show(state);
    EXPECT_EQ(model.row(0).routedLabel, QStringLiteral("Seven"));
}

TEST_F(CrosspointGridModelTest, MarksAFeedFromOutsideThePanel)
{
    show(matrix(4, 4));
    EXPECT_FALSE(model.row(3).offPanelFeed) << "no panel";
    showPanel({0, 1}, {1, 3});
    ASSERT_EQ(model.destinations().size(), 2);
    EXPECT_FALSE(model.row(0).offPanelFeed) << "fed by a source of the panel";
    EXPECT_TRUE(model.row(1).offPanelFeed);
    EXPECT_EQ(model.row(1).routedLabel, QStringLiteral("In 4"));
    report(driverEvent::RouteChanged{0, 3, std::nullopt});
    EXPECT_FALSE(model.row(1).offPanelFeed) << "not fed at all";
}

TEST_F(CrosspointGridModelTest, TellsOfTheSignalOrElseHowToRename)
{
    RouterState state = matrix(4, 1);
    state.inputStatus = {{1, {false, QStringLiteral("1080p")}}, {2, {true, std::nullopt}},
        {3, {true, QStringLiteral("1080p")}}};
    show(state);
    EXPECT_EQ(model.signalHelp(0), QStringLiteral("Double-click to rename"));
    EXPECT_EQ(model.signalHelp(1), QStringLiteral("No signal"));
    EXPECT_EQ(model.signalHelp(2), QStringLiteral("Signal present"));
    EXPECT_EQ(model.signalHelp(3), QStringLiteral("Signal: 1080p"));
    EXPECT_EQ(model.column(0).signalPresent, std::nullopt) << "no dot where nothing is known";
    EXPECT_EQ(model.column(1).signalPresent, false);
    EXPECT_EQ(model.column(3).signalPresent, true);
}

TEST_F(CrosspointGridModelTest, HelpsAtHeadersOnly)
{
    show(matrix(2, 2));
    EXPECT_EQ(model.toolTip({0, GridPlace::header}), QStringLiteral("Double-click to rename"));
    EXPECT_EQ(model.toolTip({GridPlace::header, 1}), model.signalHelp(1));
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

/// What the model says may look different.
class Changes {
public:
    explicit Changes(const CrosspointGridModel& model)
    {
        QObject::connect(
            &model, &CrosspointGridModel::rowChanged, &m_context, [this](int row) { note("row", row); });
        QObject::connect(
            &model, &CrosspointGridModel::columnChanged, &m_context, [this](int c) { note("column", c); });
        QObject::connect(
            &model, &CrosspointGridModel::looksChanged, &m_context, [this] { m_seen.insert("looks"); });
        QObject::connect(
            &model, &CrosspointGridModel::portsChanged, &m_context, [this] { m_seen.insert("ports"); });
    }

    [[nodiscard]] std::set<std::string> seen() { return std::exchange(m_seen, {}); }

private:
    void note(const std::string& what, int position) { m_seen.insert(what + " " + std::to_string(position)); }

    QObject m_context;
    std::set<std::string> m_seen;
};

using Seen = std::set<std::string>;

TEST_F(CrosspointGridModelTest, TellsWhatOneEventChanges)
{
    show(matrix(4, 4, 2));
    showPanel({1, 2, 3}, {2, 3});
    Changes changes(model);
    const struct {
        const char* name;
        RouterDriverEvent event;
        Seen seen;
    } cases[] = {
        {"a tally", driverEvent::RouteChanged{0, 3, 1}, {"row 1"}},
        {"a tally of another level", driverEvent::RouteChanged{1, 3, 1}, {}},
        {"a tally of a hidden destination", driverEvent::RouteChanged{0, 0, 1}, {}},
        {"a lock", driverEvent::LockChanged{2, true}, {"row 0"}},
        {"a signal", driverEvent::InputStatusChanged{2, InputSignalStatus{}}, {"column 1"}},
        {"a hidden source's signal", driverEvent::InputStatusChanged{0, InputSignalStatus{}}, {}},
        {"a name", driverEvent::LabelChanged{PortKind::source, 1, QStringLiteral("Cam")}, {"looks"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        report(c.event);
        EXPECT_EQ(changes.seen(), c.seen);
    }
}

TEST_F(CrosspointGridModelTest, TellsOfOtherPortsAndOfOtherLooksApart)
{
    show(matrix(4, 4));
    Changes changes(model);
    RouterState same = matrix(4, 4);
    same.routing[0][0] = 3;
    report(driverEvent::StateReplaced{same});
    EXPECT_EQ(changes.seen(), Seen{"looks"});
    report(driverEvent::StateReplaced{matrix(4, 3)});
    EXPECT_TRUE(changes.seen().contains("ports"));
    controller->setPrimaryLevel(1);
    EXPECT_EQ(changes.seen(), Seen{"looks"});
}

TEST_F(CrosspointGridModelTest, FindsRowsAndColumnsByPortIndex)
{
    show(matrix(4, 4));
    showPanel({1, 3}, {2});
    EXPECT_EQ(model.columnOf(3), 1);
    EXPECT_EQ(model.columnOf(0), std::nullopt);
    EXPECT_EQ(model.rowOf(2), 0);
}

TEST_F(CrosspointGridModelTest, ReadsOutACell)
{
    show(matrix(2, 2));
    const GridRowView row = model.row(1);
    EXPECT_EQ(row.cellLabel(0), QStringLiteral("Out 2 from In 1"));
    EXPECT_EQ(row.cellValue(0), QStringLiteral("Not connected"));
    EXPECT_EQ(row.cellValue(1), QStringLiteral("Connected"));
}

TEST_F(CrosspointGridModelTest, MakesEqualRowsOfEqualStatesOnly)
{
    show(matrix(3, 3));
    const GridRowView before = model.row(1);
    report(driverEvent::RouteChanged{0, 2, 0});
    EXPECT_EQ(model.row(1), before) << "another row's tally";
    report(driverEvent::RouteChanged{0, 1, 0});
    EXPECT_NE(model.row(1), before);
}

} // namespace

} // namespace corvane
