#include "Views/List/DestinationPaneModel.h"
#include "PaneTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using Positions = std::vector<int>;
using Calls = std::vector<std::string>;
using Seen = std::vector<std::string>;

class DestinationPaneModelTest : public PaneTest<DestinationPaneModel> {
protected:
    [[nodiscard]] Calls actions() const { return said(model.content().headerActions); }

    void gang(const QList<qint64>& destinations)
    {
        controller->setMultiSelectMode(true);
        controller->deselectAllInGang();
        for (const auto destination : destinations)
            controller->toggleDestinationInGang(destination);
    }

    void leadWithSource(TakeMode mode)
    {
        controller->setDirection(RoutingDirection::sourceLed);
        controller->setTakeMode(mode);
    }
};

TEST_F(DestinationPaneModelTest, NamesWhatFeedsEachByItsPlaceInTheList)
{
    auto state = matrix(3, 6);
    state.sources[2].label.clear();
    state.routing[0] = {{0, 2}, {1, -1}, {2, 3}, {3, 0}};
    state.sources[0].index = 17;
    show(state);
    struct Case {
        const char* name;
        int position;
        QString detail;
    };
    const Case cases[] = {
        {"a source without a name", 0, u""_s},
        {"negative", 1, u"—"_s},
        {"beyond the sources", 2, u"—"_s},
        {"by position and not by index", 3, u"In 1"_s},
        {"not routed", 4, u"—"_s},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(row(c.position).detail, c.detail);
    }
}

TEST_F(DestinationPaneModelTest, TheCurrentOnesAreAimedAt)
{
    show(matrix(5, 5));
    controller->focusDestination(3);
    EXPECT_EQ(current(), Positions{3});
    EXPECT_EQ(subtitle(), "");
    gang({1, 4});
    EXPECT_EQ(current(), (Positions{1, 4}));
    EXPECT_EQ(subtitle(), "2 selected");
    EXPECT_EQ(row(4).badgeSymbol(), u"checkmark.circle.fill"_s);
    EXPECT_EQ(row(2).badgeSymbol(), u"plus.circle.fill"_s);
    controller->setMultiSelectMode(false);
    EXPECT_EQ(subtitle(), "");
    controller->deselectAllInGang();
    EXPECT_EQ(current(), Positions{});
}

TEST_F(DestinationPaneModelTest, SourceLedTheCurrentOnesAreFedByTheFocusedSource)
{
    auto state = matrix(5, 5, 2);
    state.routing[0][4] = 1;
    show(state);
    leadWithSource(TakeMode::immediate);
    controller->focusSource(1);
    EXPECT_EQ(current(), (Positions{1, 4}));
    EXPECT_EQ(subtitle(), "2 fed");
    controller->setPrimaryLevel(1);
    EXPECT_EQ(current(), Positions{1});
    EXPECT_EQ(subtitle(), "1 fed");
    report(driverEvent::RouteChanged{1, 1, std::nullopt});
    EXPECT_EQ(subtitle(), "0 fed");
    controller->setPrimaryLevel(0);
    showPanel({0, 1}, {0, 2, 4});
    EXPECT_EQ(subtitle(), "1 fed") << "of those that are shown";
    for (const qint64 none : {-1, 5}) {
        controller->focusSource(none);
        EXPECT_EQ(subtitle(), "Pick a source first");
    }
    showPanel({2}, {0, 3});
    report(driverEvent::RouteChanged{0, 3, std::nullopt});
    EXPECT_EQ(controller->selectedSource(), std::nullopt);
    EXPECT_EQ(current(), Positions{}) << "not even what has no source either";
    EXPECT_EQ(subtitle(), "Pick a source first");
}

TEST_F(DestinationPaneModelTest, StagedOnesArePendingInConfirmModeOnly)
{
    show(matrix(5, 5));
    controller->setPendingDestination(2);
    controller->setPendingDestinations({3, 4});
    EXPECT_EQ(pending(), Positions{}) << "immediate";

    controller->setTakeMode(TakeMode::confirm);
    controller->focusDestination(2);
    EXPECT_EQ(pending(), Positions{2});
    controller->setPendingDestinations({3, 4});
    EXPECT_EQ(pending(), Positions{2}) << "destination-led, the one that is aimed at";

    leadWithSource(TakeMode::confirm);
    controller->setPendingDestination(2);
    controller->setPendingDestinations({3, 4});
    EXPECT_EQ(pending(), (Positions{3, 4})) << "source-led, all that the source will go to";
}

TEST_F(DestinationPaneModelTest, OffersWhatTheModeAllows)
{
    show(matrix(3, 3));
    report(driverEvent::LockChanged{1, true});
    EXPECT_EQ(actions(), Calls{"Multiple|checklist"});
    EXPECT_FALSE(row(0).hasBadge);

    model.performHeaderAction(0);
    EXPECT_TRUE(controller->multiSelectMode());
    EXPECT_EQ(actions(), (Calls{"Select All|checkmark.square.fill", "Done|checkmark"}));
    EXPECT_TRUE(row(0).hasBadge);

    model.performHeaderAction(0);
    EXPECT_EQ(current(), (Positions{0, 2})) << "all that are not locked";
    EXPECT_EQ(actions(), (Calls{"Deselect All|square.dashed", "Done|checkmark"}));

    model.performHeaderAction(0);
    EXPECT_EQ(current(), Positions{});
    model.performHeaderAction(1);
    EXPECT_FALSE(controller->multiSelectMode());
    EXPECT_EQ(actions(), Calls{"Multiple|checklist"});
}

TEST_F(DestinationPaneModelTest, SourceLedOffersToStageAllOrNone)
{
    show(matrix(3, 3));
    controller->setMultiSelectMode(true);
    leadWithSource(TakeMode::immediate);
    EXPECT_EQ(actions(), Calls{"Select All|checkmark.square.fill"});
    EXPECT_FALSE(row(0).hasBadge);
    model.performHeaderAction(0);
    EXPECT_EQ(controller->takeMode(), TakeMode::confirm);
    EXPECT_EQ(pending(), (Positions{0, 1, 2}));
    EXPECT_EQ(actions(), Calls{"Deselect All|square.dashed"});
    model.performHeaderAction(0);
    EXPECT_EQ(pending(), Positions{});
    controller->focusSource(0);
    controller->assignDestination(0);
    controller->assignDestination(2);
    EXPECT_EQ(actions(), Calls{"Select All|checkmark.square.fill"});
    report(driverEvent::LockChanged{1, true});
    EXPECT_EQ(actions(), Calls{"Deselect All|square.dashed"}) << "all that can be staged are";
}

TEST_F(DestinationPaneModelTest, FocusesGangsOrAssigns)
{
    show(matrix(8, 8));
    showPanel({1, 3}, {2, 4, 6});
    model.press(1);
    EXPECT_EQ(controller->selectedDestination(), 4);
    controller->setMultiSelectMode(true);
    model.press(2);
    EXPECT_EQ(controller->selectedDestinations(), (QSet<qint64>{4, 6}));
    model.clickBadge(0);
    EXPECT_EQ(controller->selectedDestinations(), (QSet<qint64>{2, 4, 6}));

    leadWithSource(TakeMode::immediate);
    controller->focusSource(3);
    model.press(0);
    EXPECT_EQ(told(), Calls{"takeAll 0:2<3"});
    controller->setTakeMode(TakeMode::confirm);
    model.press(2);
    EXPECT_EQ(controller->pendingDestinations(), QSet<qint64>{6});
}

TEST_F(DestinationPaneModelTest, OffersToRenameAndToLock)
{
    show(matrix(4, 4));
    showPanel({0}, {1, 3});
    EXPECT_EQ(said(model.menu(1)), (Calls{"Rename Destination…|pencil", "Lock|lock"}));
    runAction(model.menu(1), u"Lock"_s);
    EXPECT_EQ(told(), Calls{"setLock 3 0 true"});
    EXPECT_TRUE(row(1).locked);
    EXPECT_EQ(model.speech(1).name, u"Out 4, 4, In 4, locked"_s);
    EXPECT_EQ(said(model.menu(1)), (Calls{"Rename Destination…|pencil", "Unlock|lock.open"}));
    controller->setMultiSelectMode(true);
    EXPECT_EQ(said(model.actions(1)),
        (Calls{"Toggle Out 4 in selection|", "Rename Destination…|pencil", "Unlock|lock.open"}));
    runAction(model.actions(1), u"Toggle Out 4 in selection"_s);
    EXPECT_EQ(controller->selectedDestinations().size(), 0);
    EXPECT_EQ(controller->selectedDestination(), 3);
    runAction(model.actions(1), u"Rename Destination…"_s);
    EXPECT_EQ(controller->renameTarget(), (PortRef{PortKind::destination, 3}));
}

TEST_F(DestinationPaneModelTest, TellsOfTheRowsThatAreDifferentAndOfNoOthers)
{
    show(matrix(6, 6, 2));
    showPanel({0, 1, 2, 3}, {1, 2, 3, 4});
    RowTellings tellings(model);
    struct Case {
        const char* name;
        RouterDriverEvent event;
        Seen seen;
    };
    const Case cases[] = {
        {"a tally", driverEvent::RouteChanged{0, 3, 1}, {"changed 2"}},
        {"the same tally", driverEvent::RouteChanged{0, 3, 1}, {}},
        {"a tally of another level", driverEvent::RouteChanged{1, 3, 1}, {}},
        {"a tally of a hidden destination", driverEvent::RouteChanged{0, 0, 1}, {}},
        {"a lock", driverEvent::LockChanged{2, true}, {"changed 1"}},
        {"a signal", driverEvent::InputStatusChanged{2, InputSignalStatus{}}, {}},
        {"the name of a source that feeds two", driverEvent::LabelChanged{PortKind::source, 1, u"Cam"_s},
            {"changed 0", "changed 2"}},
        {"a name", driverEvent::LabelChanged{PortKind::destination, 4, u"PGM"_s}, {"changed 3"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        report(c.event);
        EXPECT_EQ(tellings.seen(), c.seen);
    }
    controller->focusDestination(1);
    EXPECT_EQ(tellings.seen(), Seen{"changed 0"});
    controller->focusDestination(4);
    EXPECT_EQ(tellings.seen(), (Seen{"changed 0", "changed 3"}));
}

TEST_F(DestinationPaneModelTest, SurvivesPortsAndLevelsVanishingUnderAGang)
{
    show(matrix(6, 6, 3));
    controller->setPrimaryLevel(2);
    controller->setTakeMode(TakeMode::confirm);
    gang({1, 4, 5});
    controller->chooseSource(3);
    report(driverEvent::StateReplaced{matrix(3, 3, 1)});
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_EQ(current(), Positions{1});
    EXPECT_EQ(row(2).detail, u"In 3"_s);
    report(driverEvent::StateReplaced{RouterState{}});
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(subtitle(), "");
    model.performHeaderAction(0);
    EXPECT_EQ(current(), Positions{});
}

} // namespace

} // namespace corvane
