#include "PaneTest.h"
#include "Views/List/DestinationPaneModel.h"
#include "Views/List/SourcePaneModel.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using Calls = std::vector<std::string>;
using Seen = std::vector<std::string>;

/// What both panes do.
template <typename Model>
class PaneModelTest : public PaneTest<Model> {
protected:
    static constexpr bool isOfSources = std::is_same_v<Model, SourcePaneModel>;
    static constexpr PortKind kind = isOfSources ? PortKind::source : PortKind::destination;

    [[nodiscard]] static QString nameOf(int port)
    {
        return (isOfSources ? u"In %1"_s : u"Out %1"_s).arg(port + 1);
    }
    void showOnly(const QList<qint64>& ports)
    {
        this->showPanel(isOfSources ? ports : QList<qint64>{0}, isOfSources ? QList<qint64>{0} : ports);
    }
    [[nodiscard]] Calls titles() const
    {
        Calls titles;
        for (const auto& row : this->model.rows())
            titles.push_back(row.title.toStdString());
        return titles;
    }
};

using Panes = testing::Types<SourcePaneModel, DestinationPaneModel>;
TYPED_TEST_SUITE(PaneModelTest, Panes);

TYPED_TEST(PaneModelTest, ShowsEachVisiblePortWithItsNumber)
{
    this->show(matrix(120, 120));
    const auto& content = this->model.content();
    EXPECT_EQ(content.title, this->isOfSources ? u"Sources"_s : u"Destinations"_s);
    EXPECT_EQ(content.count, 120);
    EXPECT_EQ(content.widestNumber, u"888"_s);
    EXPECT_EQ(content.subtitleIsPriority, !this->isOfSources);
    this->showOnly({5, 9});
    EXPECT_EQ(content.count, 2);
    EXPECT_EQ(content.widestNumber, u"88"_s);
    EXPECT_EQ(this->row(1).numberText(), u"10"_s);
    EXPECT_EQ(this->row(1).title, this->nameOf(9));
    const auto index = this->model.index(1);
    EXPECT_EQ(this->model.data(index, Qt::DisplayRole), this->nameOf(9));
    EXPECT_EQ(this->model.data(index, PaneModel::rowRole).template value<SelectableRow>(), this->row(1));
}

TYPED_TEST(PaneModelTest, TakesTheColourOfTheLevelAndOfTheScheme)
{
    auto state = matrix(2, 2);
    state.levels[0].kind = LevelKind::audio;
    this->show(state);
    EXPECT_EQ(this->model.content().tint, this->theme.palette().green);
}

TYPED_TEST(PaneModelTest, KeepsTheRowsThatStay)
{
    this->show(matrix(6, 6));
    const QPersistentModelIndex fifth = this->model.index(5);
    this->report(driverEvent::StateReplaced{matrix(8, 8)});
    EXPECT_EQ(this->model.rowCount(), 8);
    this->showOnly({0, 1, 5});
    EXPECT_EQ(fifth.row(), 2);
    EXPECT_EQ(this->model.rowOf(5), 2);
    EXPECT_EQ(this->model.rowOf(2), std::nullopt);
    this->report(driverEvent::StateReplaced{RouterState{}});
    EXPECT_EQ(this->model.rowCount(), 0);
}

TYPED_TEST(PaneModelTest, KeepsLabelsAsTheyAreAndSpeaksOfAPortWithoutOneByItsNumber)
{
    auto state = matrix(5, 5);
    const QStringList names{QString(200, u'W'), u"\u202Eمخرج 1"_s, u"🎥 <b>Cam</b> & %1"_s, u""_s, u"  "_s};
    for (int i = 0; i < names.size(); ++i) {
        state.sources[i].label = names.at(i);
        state.destinations[i].label = names.at(i);
    }
    this->show(state);
    const auto what = this->isOfSources ? u"Source %1"_s : u"Destination %1"_s;
    for (int i = 0; i < names.size(); ++i) {
        const auto spoken = i < 3 ? names.at(i) : what.arg(i + 1);
        EXPECT_EQ(this->row(i).title, names.at(i));
        EXPECT_EQ(this->row(i).badgeName(), u"Toggle "_s + spoken + u" in selection"_s);
        const auto said = this->model.speech(i).name;
        EXPECT_TRUE(said.startsWith(i < 3 ? spoken + u", %1"_s.arg(i + 1) : spoken)) << said.toStdString();
    }
    EXPECT_EQ(this->model.speech(3).name, this->isOfSources ? u"Source 4"_s : u"Destination 4, Source 4"_s);
}

TYPED_TEST(PaneModelTest, BeginsAtTheCurrentRow)
{
    this->show(matrix(9, 9));
    this->controller->focusDestination(7);
    EXPECT_EQ(this->model.startRow(), 7);
    EXPECT_TRUE(this->model.speech(7).isSelected);
    this->controller->deselectAllInGang();
    EXPECT_EQ(this->model.startRow(), 0);
    EXPECT_FALSE(this->model.speech(7).isSelected);
}

TYPED_TEST(PaneModelTest, AnythingBeyondTheRowsDoesNothing)
{
    this->show(matrix(2, 2));
    auto& pane = this->model;
    for (const int beyond : {-1, 2}) {
        pane.press(beyond);
        pane.click(beyond);
        pane.doubleClick(beyond);
        pane.clickBadge(beyond);
        pane.performHeaderAction(beyond);
        EXPECT_TRUE(pane.menu(beyond).isEmpty());
        EXPECT_TRUE(pane.actions(beyond).isEmpty());
        EXPECT_EQ(pane.speech(beyond), RowSpeech{});
        EXPECT_FALSE(pane.data(pane.index(beyond), PaneModel::rowRole).isValid());
    }
    pane.performHeaderAction(static_cast<int>(pane.content().headerActions.size()));
    EXPECT_EQ(this->told(), Calls{});
    EXPECT_EQ(this->controller->renameTarget(), std::nullopt);
}

TYPED_TEST(PaneModelTest, IsEmptyOnceTheRouterIsGone)
{
    this->show(matrix(2, 2));
    this->model.click(0);
    this->controller.reset();
    EXPECT_EQ(this->model.controller(), nullptr);
    EXPECT_EQ(this->model.rowCount(), 0);
    EXPECT_EQ(this->model.content().count, 0);
    EXPECT_TRUE(this->model.content().headerActions.isEmpty());
    EXPECT_EQ(this->subtitle(), "");
    this->model.click(0);
    this->queue.advance(std::chrono::seconds(1));
}

TYPED_TEST(PaneModelTest, FollowsAnotherControllerAndNoLongerTheOldOne)
{
    this->show(matrix(2, 2));
    const auto old = std::exchange(this->controller, this->makeController());
    this->model.setController(this->controller.get());
    EXPECT_EQ(this->model.rowCount(), 0);
    RowTellings tellings(this->model);
    old->focusDestination(1);
    EXPECT_EQ(tellings.seen(), Seen{});
    this->connectTo(matrix(3, 3));
    EXPECT_EQ(this->model.rowCount(), 3);
}

} // namespace

} // namespace corvane
