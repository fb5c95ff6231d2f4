#include "WindowTest.h"

#include <QtTest/QTest>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

using MainWindowTest = WindowTest;

TEST_F(MainWindowTest, TheKeyboardGoesBackToWhereItWasBeforeADialog)
{
    auto* const grid = focused();
    ASSERT_EQ(grid->text(QAccessible::Name), u"Crosspoint matrix"_s);
    press(Qt::Key_F2);
    ASSERT_NE(find(QAccessible::Dialog), nullptr);
    press(Qt::Key_Escape);
    ASSERT_EQ(find(QAccessible::Dialog), nullptr);
    EXPECT_EQ(focused(), grid);
}

TEST_F(MainWindowTest, ReturnInADialogPressesTheButtonThatHasTheKeyboard)
{
    auto& demo = controller(u"Demo Router"_s);
    for (const bool saves : {false, true}) {
        demo.beginRename(PortKind::source, 0);
        demo.setRenameDraft(u"Desk"_s);
        settle();
        press(Qt::Key_Tab);
        if (saves)
            press(Qt::Key_Tab);
        EXPECT_EQ(focused()->text(QAccessible::Name), saves ? u"Save"_s : u"Cancel"_s);
        press(Qt::Key_Return);
        EXPECT_EQ(find(QAccessible::Dialog), nullptr);
        EXPECT_EQ(demo.state().sources.constFirst().label, saves ? u"Desk"_s : u"CAM 1"_s);
    }
}

TEST_F(MainWindowTest, AReturnThatIsHeldDownTakesNothing)
{
    auto& demo = controller(u"Demo Router"_s);
    demo.setTakeMode(TakeMode::confirm);
    demo.selectDestination(4);
    demo.setPendingSource(8);
    demo.beginRename(PortKind::source, 0);
    settle();
    press(Qt::Key_Return);
    ASSERT_EQ(find(QAccessible::Dialog), nullptr);
    QTest::simulateEvent(window.get(), true, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
    settle();
    EXPECT_TRUE(demo.pendingTake()) << "it was pressed to save the name";
    press(Qt::Key_Return);
    EXPECT_FALSE(demo.pendingTake());
    EXPECT_EQ(demo.state().source(4, 0), 8);
}

TEST_F(MainWindowTest, AReturnThatIsHeldDownAnswersNoQuestion)
{
    auto& demo = controller(u"Demo Router"_s);
    demo.beginRename(PortKind::source, 0);
    settle();
    QTest::simulateEvent(window.get(), true, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
    settle();
    EXPECT_NE(find(QAccessible::Dialog), nullptr) << "it chose \"Rename Source…\" in the menu";
    press(Qt::Key_Tab);
    QTest::simulateEvent(window.get(), true, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
    settle();
    EXPECT_NE(find(QAccessible::Dialog), nullptr) << "on the button";
    press(Qt::Key_Return);
    EXPECT_EQ(find(QAccessible::Dialog), nullptr);
}

TEST_F(MainWindowTest, ARouterThatDropsLeavesTheNameThatIsBeingTyped)
{
    auto& demo = controller(u"Demo Router"_s);
    demo.beginRename(PortKind::source, 0);
    settle();
    press(Qt::Key_D);
    demo.disconnect();
    settle();
    ASSERT_NE(find(QAccessible::Button, u"Connect"_s), nullptr);
    ASSERT_NE(find(QAccessible::Dialog, u"Rename Source"_s), nullptr);
    press(Qt::Key_E);
    press(Qt::Key_Return);
    EXPECT_EQ(find(QAccessible::Dialog), nullptr);
    EXPECT_EQ(demo.state().sources.constFirst().label, u"de"_s);
}

TEST_F(MainWindowTest, AScreenReaderHearsWhatStandsBesideTheButtons)
{
    const auto hears = [this](const QString& text) { return find(QAccessible::StaticText, text) != nullptr; };
    auto& demo = controller(u"Demo Router"_s);
    const auto& state = demo.state();
    EXPECT_TRUE(hears(u"16 in × 16 out · %1"_s.arg(state.levels.constFirst().name)));

    demo.setTakeMode(TakeMode::confirm);
    settle();
    EXPECT_TRUE(hears(u"Stage a route"_s));
    demo.selectDestination(4);
    demo.setPendingSource(3);
    settle();
    EXPECT_FALSE(hears(u"Stage a route"_s));
    EXPECT_TRUE(hears(state.sources.at(3).label));
    EXPECT_TRUE(hears(u"→ %1"_s.arg(state.destinations.at(4).label)));

    store->setSelectedConnectionID(router(u"MX2 Conference"_s).id);
    settle();
    EXPECT_TRUE(hears(u"Connection refused"_s));
}

TEST_F(MainWindowTest, AScreenReaderPressesButtonsAndHearsWhatTheyAre)
{
    auto& demo = controller(u"Demo Router"_s);
    const auto press = QAccessibleActionInterface::pressAction();
    auto* const immediate = find(QAccessible::RadioButton, u"Direct"_s);
    auto* const confirm = find(QAccessible::RadioButton, u"Take"_s);
    ASSERT_TRUE(immediate && confirm);
    EXPECT_TRUE(immediate->state().checked);
    act(confirm, press);
    EXPECT_EQ(demo.takeMode(), TakeMode::confirm);
    EXPECT_TRUE(confirm->state().checked);

    demo.selectDestination(0);
    demo.setPendingSource(3);
    settle();
    act(find(QAccessible::Button, u"Clear staged route"_s), press);
    EXPECT_FALSE(demo.hasStaging());
}

} // namespace

} // namespace corvane
