#include "WindowTest.h"

#include <QtTest/QTest>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

/// Where the keyboard is, and what it does there.
class KeyboardTest : public WindowTest {
protected:
    [[nodiscard]] MatrixController& demo() const { return controller(u"Demo Router"_s); }

    /// Of a row, the part before the first comma.
    [[nodiscard]] std::string focusedName() const
    {
        const auto* const there = focused();
        return there ? there->text(QAccessible::Name).section(u',', 0, 0).toStdString() : "nothing";
    }

    void goTo(QAccessible::Role role, const std::string& name)
    {
        constexpr int everyStop = 40;
        const auto isThere = [&] { return focused() && focused()->role() == role && focusedName() == name; };
        for (int i = 0; i < everyStop && !isThere(); ++i)
            press(Qt::Key_Tab);
        ASSERT_TRUE(isThere()) << "no way to " << name;
    }

    void stage()
    {
        demo().setTakeMode(TakeMode::confirm);
        demo().selectDestination(4);
        demo().setPendingSource(8);
        settle();
    }
};

TEST_F(KeyboardTest, ReturnTakesFromGridAndPanesAndTheTakeButtonAlone)
{
    struct Case {
        RouteViewMode view;
        QAccessible::Role role;
        const char* focus;
        bool takes;
    };
    const Case cases[] = {
        {RouteViewMode::matrix, QAccessible::Grouping, "Crosspoint matrix", true},
        {RouteViewMode::matrix, QAccessible::Button, "Take", true},
        {RouteViewMode::matrix, QAccessible::Button, "Follow", false},
        {RouteViewMode::matrix, QAccessible::Grouping, "Level", false},
        {RouteViewMode::matrix, QAccessible::Button, "Larger cells", false},
        {RouteViewMode::matrix, QAccessible::Button, "Labels", false},
        {RouteViewMode::matrix, QAccessible::ListItem, "Demo Router", false},
        {RouteViewMode::matrix, QAccessible::Splitter, "Width of the list of routers", false},
        {RouteViewMode::list, QAccessible::Button, "CAM 1", true},
        {RouteViewMode::list, QAccessible::Button, "MON 1", true},
        {RouteViewMode::list, QAccessible::Button, "Multiple", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.focus);
        demo().setViewMode(c.view);
        stage();
        goTo(c.role, c.focus);
        for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
            stage();
            press(key, Qt::ControlModifier);
            EXPECT_TRUE(demo().pendingTake());
            press(key);
            EXPECT_EQ(!demo().pendingTake(), c.takes);
        }
    }
}

TEST_F(KeyboardTest, ReturnPressesTheButtonThatHasTheKeyboard)
{
    goTo(QAccessible::Button, "Follow");
    press(Qt::Key_Return);
    EXPECT_EQ(demo().breakawayLevels().size(), 1);
    press(Qt::Key_Enter);
    EXPECT_EQ(demo().breakawayLevels().size(), 0);
}

TEST_F(KeyboardTest, AButtonWithNothingToDoKeepsTheKeyboard)
{
    struct Case {
        const char* name;
        int presses;
    };
    for (const auto& [name, presses] :
        {Case{"Take", 1}, Case{"Clear staged route", 1}, Case{"Smaller cells", 5}, Case{"Larger cells", 9}}) {
        SCOPED_TRACE(name);
        stage();
        goTo(QAccessible::Button, name);
        for (int i = 0; i < presses; ++i)
            press(Qt::Key_Space);
        EXPECT_EQ(focusedName(), name);
        press(Qt::Key_Tab);
        EXPECT_NE(focusedName(), name);
        EXPECT_NE(focusedName(), "nothing");
    }
}

TEST_F(KeyboardTest, TheBannerGivesTheKeyboardBack)
{
    for (const bool isPressed : {true, false}) {
        demo().setLastError(u"Refused"_s);
        settle();
        goTo(QAccessible::AlertMessage, "Refused");
        if (isPressed)
            press(Qt::Key_Space);
        else
            demo().setLastError(std::nullopt);
        settle();
        EXPECT_EQ(focusedName(), "Larger cells");
    }
}

TEST_F(KeyboardTest, WhatComesInPlaceOfAScreenHasTheKeyboard)
{
    EXPECT_EQ(focusedName(), "Crosspoint matrix");
    demo().setViewMode(RouteViewMode::list);
    settle();
    EXPECT_EQ(focusedName(), "CAM 1");
    demo().disconnect();
    settle();
    EXPECT_EQ(focusedName(), "Connect");
    press(Qt::Key_Return);
    queue.advance(std::chrono::seconds(1));
    settle();
    EXPECT_EQ(focusedName(), "CAM 1");

    const SubPanel panel{QUuid::createUuid(), u"Gallery"_s, {40, 41}, {40, 41}};
    demo().savePanel(panel);
    demo().setActivePanelID(panel.id);
    settle();
    EXPECT_EQ(focusedName(), "Edit Panel…");
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    EXPECT_EQ(focusedName(), "CAM 1");
}

TEST_F(KeyboardTest, AControlThatIsGoneHandsTheKeyboardOn)
{
    stage();
    goTo(QAccessible::Button, "Clear staged route");
    demo().setTakeMode(TakeMode::immediate);
    settle();
    EXPECT_EQ(focusedName(), "Crosspoint matrix");
    goTo(QAccessible::Button, "Larger cells");
    demo().setViewMode(RouteViewMode::list);
    settle();
    EXPECT_EQ(focusedName(), "CAM 1");
}

TEST_F(KeyboardTest, AMousePressOnAButtonLeavesTheKeyboardWhereItWas)
{
    click(Qt::LeftButton, *find(QAccessible::Button, u"Follow"_s));
    EXPECT_EQ(demo().breakawayLevels().size(), 1);
    EXPECT_EQ(focusedName(), "Crosspoint matrix");
}

} // namespace

} // namespace corvane
