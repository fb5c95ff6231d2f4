#include "PaneRowsTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using Calls = std::vector<std::string>;

TEST_F(PaneRowsTest, BeginsWhereTheWorkIs)
{
    connectTo(matrix(40, 40));
    controller->focusDestination(30);
    model.setController(controller.get());
    window.grabWindow();
    EXPECT_EQ(rows.focusRow(), 30);
    EXPECT_TRUE(rows.layout().isInView(30));
    rows.setScroll(0);
    controller->focusDestination(35);
    window.grabWindow();
    EXPECT_EQ(rows.scroll(), 0) << "later it stays where it was put";
}

TEST_F(PaneRowsTest, BeginsAgainWithOtherRows)
{
    show(matrix(40, 40));
    press(Qt::Key_End);
    EXPECT_GT(rows.scroll(), 0);
    const SubPanel panel{.name = u"P"_s, .sourceIndices = {1}, .destinationIndices = {7, 8}};
    controller->savePanel(panel);
    controller->setActivePanelID(panel.id);
    window.grabWindow();
    EXPECT_EQ(rows.focusRow(), 0);
    EXPECT_EQ(rows.scroll(), 0);
}

TEST_F(PaneRowsTest, TheKeyboardMovesAndActsOnOneRow)
{
    show(matrix(40, 40));
    EXPECT_TRUE(press(Qt::Key_Down));
    EXPECT_EQ(controller->selectedDestination(), 0) << "moving is no click";
    EXPECT_TRUE(press(Qt::Key_Space));
    EXPECT_EQ(controller->selectedDestination(), 1);
    EXPECT_TRUE(press(Qt::Key_F2));
    EXPECT_EQ(controller->renameTarget(), (PortRef{PortKind::destination, 1}));
    EXPECT_TRUE(press(Qt::Key_L));
    EXPECT_EQ(told(), Calls{"setLock 1 0 true"});
    EXPECT_TRUE(press(Qt::Key_End));
    EXPECT_EQ(rows.focusRow(), 39);
    EXPECT_TRUE(rows.layout().isInView(39));
}

TEST_F(PaneRowsTest, LeavesOtherKeysToOthers)
{
    show(matrix(4, 4));
    struct Case {
        const char* name;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        bool isRepeat;
    };
    const Case cases[] = {
        {"another letter", Qt::Key_K, Qt::NoModifier, false},
        {"across", Qt::Key_Right, Qt::NoModifier, false},
        {"the take", Qt::Key_Return, Qt::NoModifier, false},
        {"a shortcut", Qt::Key_L, Qt::ControlModifier, false},
        {"a moving shortcut", Qt::Key_Down, Qt::ControlModifier, false},
        {"a key that is held down", Qt::Key_Space, Qt::NoModifier, true},
        {"F10 alone", Qt::Key_F10, Qt::NoModifier, false},
    };
    for (const auto& c : cases)
        EXPECT_FALSE(press(c.key, c.modifiers, c.isRepeat)) << c.name;
    EXPECT_EQ(told(), Calls{});
}

TEST_F(PaneRowsTest, WithoutRowsNoKeyDoesAnything)
{
    show(RouterState{});
    for (const auto key : {Qt::Key_Space, Qt::Key_F2, Qt::Key_L, Qt::Key_Menu})
        EXPECT_FALSE(press(key));
    EXPECT_TRUE(press(Qt::Key_End));
    EXPECT_EQ(rows.focusRow(), 0);
}

TEST_F(PaneRowsTest, TheKeyboardStaysOnARowThatIsThere)
{
    show(matrix(40, 40));
    press(Qt::Key_End);
    report(driverEvent::StateReplaced{matrix(40, 5)});
    EXPECT_EQ(rows.focusRow(), 4);
    press(Qt::Key_Space);
    EXPECT_EQ(controller->selectedDestination(), 4);
}

TEST_F(PaneRowsTest, ThePointerTakesTheKeyboardAlong)
{
    show(matrix(8, 8));
    rows.takeKeyboard();
    EXPECT_TRUE(rows.hasActiveFocus());
    EXPECT_TRUE(rows.showsFocus());
    rows.click(3);
    EXPECT_EQ(rows.focusRow(), 3);
    EXPECT_FALSE(rows.showsFocus());
    EXPECT_EQ(controller->selectedDestination(), 3);
    controller->setMultiSelectMode(true);
    rows.clickBadge(5);
    EXPECT_EQ(controller->selectedDestinations(), (QSet<qint64>{3, 5}));
    rows.click(6);
    rows.doubleClick(6);
    EXPECT_EQ(controller->renameTarget(), (PortRef{PortKind::destination, 6}));
}

TEST_F(PaneRowsTest, TheWheelMovesTheRowsAtOnceAndNoFartherThanTheyGo)
{
    show(matrix(40, 40));
    rows.turnWheel({0, -70}, {0, -120});
    EXPECT_EQ(rows.scroll(), 70) << "what the device says of points";
    rows.turnWheel({}, {0, -120});
    EXPECT_GT(rows.scroll(), 70 + 24);
    rows.turnWheel({}, {0, 120});
    EXPECT_EQ(rows.scroll(), 70);
    rows.turnWheel({0, 500}, {});
    EXPECT_EQ(rows.scroll(), 0);
    rows.turnWheel({0, -50000}, {});
    EXPECT_EQ(rows.scroll(), rows.layout().maximumScroll());
}

TEST_F(PaneRowsTest, AMenuMeansThePortItWasAskedForAt)
{
    show(matrix(8, 8));
    QVariantList entries;
    QObject::connect(&rows, &PaneRows::menuRequested, &rows,
        [&](QPointF, const QVariantList& offered) { entries = offered; });
    rows.requestMenu(3, {});
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(entries.at(1).toMap().value(u"text"_s), u"Lock"_s);
    const SubPanel panel{.name = u"P"_s, .sourceIndices = {1}, .destinationIndices = {1, 3, 5, 6}};
    controller->savePanel(panel);
    controller->setActivePanelID(panel.id);
    rows.performMenuEntry(1);
    EXPECT_EQ(told(), Calls{"setLock 3 0 true"}) << "it is in the second row now";
    report(driverEvent::StateReplaced{matrix(2, 2)});
    rows.performMenuEntry(1);
    EXPECT_EQ(told(), Calls{}) << "the port is gone";
}

TEST_F(PaneRowsTest, AMenuDoesNothingThatItDidNotSay)
{
    show(matrix(8, 8));
    rows.requestMenu(3, {});
    report(driverEvent::LockChanged{.destination = 3, .locked = true});
    rows.performMenuEntry(1);
    EXPECT_EQ(told(), Calls{}) << "it said \"Lock\", and someone else has locked it meanwhile";
    rows.performMenuEntry(0);
    EXPECT_EQ(controller->renameTarget(), (PortRef{PortKind::destination, 3}));
}

TEST_F(PaneRowsTest, SurvivesItsModel)
{
    auto passing = std::make_unique<DestinationPaneModel>();
    connectTo(matrix(4, 4));
    passing->setController(controller.get());
    rows.setModel(passing.get());
    EXPECT_EQ(rows.layout().rowCount, 4);
    passing.reset();
    EXPECT_EQ(rows.layout().rowCount, 0);
    rows.click(0);
    window.grabWindow();
}

} // namespace

} // namespace corvane
