#include "WindowTest.h"

#include <QtTest/QTest>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

using testing::ElementsAre;
using testing::IsEmpty;

/// The demo router with its panels.
class PanelsTest : public WindowTest {
protected:
    [[nodiscard]] MatrixController& demo() const { return controller(u"Demo Router"_s); }
    [[nodiscard]] QAccessibleInterface* button(const QString& name) const
    {
        return find(QAccessible::Button, name);
    }
    [[nodiscard]] QAccessibleInterface* tab(const QString& name) const
    {
        return find(QAccessible::PageTab, name);
    }
    [[nodiscard]] QAccessibleInterface* row(const QString& name) const
    {
        return find(QAccessible::ListItem, name);
    }
    [[nodiscard]] QString focusedName() const
    {
        return focused() ? focused()->text(QAccessible::Name) : u"nothing"_s;
    }
    [[nodiscard]] std::vector<std::string> names(QAccessible::Role role) const
    {
        std::vector<std::string> names;
        for (const auto* const found : findAll(role))
            names.push_back(found->text(QAccessible::Name).toStdString());
        return names;
    }
    [[nodiscard]] QStringList panels() const
    {
        QStringList names;
        for (const auto& panel : demo().panels())
            names << panel.name;
        return names;
    }

    void pressOn(const QString& name) { act(button(name), QAccessibleActionInterface::pressAction()); }
    void clickOn(QAccessibleInterface* on)
    {
        ASSERT_NE(on, nullptr);
        click(Qt::LeftButton, *on);
    }
    void type(const QString& text)
    {
        for (const QChar letter : text)
            QTest::keyClick(window.get(), letter.toLatin1());
        settle();
    }
    void choose(const QString& menuItem)
    {
        act(find(QAccessible::MenuItem, menuItem), QAccessibleActionInterface::pressAction());
    }
    void add(const QString& name)
    {
        demo().savePanel({QUuid::createUuid(), name, {0, 1}, {0}});
        settle();
    }
    void tabTo(const QString& name)
    {
        for (int i = 0; i < 40 && focusedName() != name; ++i)
            press(Qt::Key_Tab);
        ASSERT_EQ(focusedName(), name);
    }
};

TEST_F(PanelsTest, AreMadeByTheMouse)
{
    EXPECT_EQ(tab(u"All"_s), nullptr);
    clickOn(button(u"Full Router"_s));
    EXPECT_EQ(find(QAccessible::MenuItem, u"Edit Panels…"_s), nullptr);
    clickOn(find(QAccessible::MenuItem, u"New Panel…"_s));
    ASSERT_THAT(names(QAccessible::Dialog), ElementsAre("New Panel"));
    const auto* const save = button(u"Save (0×0)"_s);
    ASSERT_NE(save, nullptr);
    EXPECT_TRUE(save->state().disabled);
    type(u"Gallery"_s);

    for (const auto& name : {u"1 CAM 1"_s, u"2 VTR 1"_s, u"3 GFX 1"_s, u"4 SRV 1"_s, u"2 MV 1"_s})
        clickOn(row(name));
    EXPECT_NE(button(u"Save (4×1)"_s), nullptr);
    clickOn(row(u"2 MV 1"_s));
    clickOn(row(u"5 PGM 1"_s));
    clickOn(button(u"Save (4×1)"_s));
    EXPECT_THAT(names(QAccessible::Dialog), IsEmpty());
    ASSERT_NE(tab(u"Gallery"_s), nullptr);
    EXPECT_TRUE(tab(u"Gallery"_s)->state().selected);
    EXPECT_FALSE(tab(u"All"_s)->state().selected);
    EXPECT_THAT(demo().activePanel()->sourceIndices, ElementsAre(0, 1, 2, 3));
    EXPECT_THAT(demo().activePanel()->destinationIndices, ElementsAre(4));

    clickOn(tab(u"All"_s));
    EXPECT_EQ(demo().activePanelID(), std::nullopt);
    clickOn(button(u"Full Router"_s));
    clickOn(find(QAccessible::RadioButton, u"Gallery"_s));
    EXPECT_NE(demo().activePanelID(), std::nullopt);

    click(Qt::RightButton, *tab(u"Gallery"_s));
    choose(u"Duplicate"_s);
    click(Qt::RightButton, *tab(u"Gallery"_s));
    choose(u"Delete"_s);
    ASSERT_THAT(names(QAccessible::Dialog), ElementsAre("Delete “Gallery”?"));
    clickOn(button(u"Delete"_s));
    EXPECT_THAT(panels(), ElementsAre(u"Gallery Copy"_s));
    EXPECT_EQ(demo().activePanelID(), std::nullopt);
}

TEST_F(PanelsTest, AreMadeAndPutInOrderByTheKeyboardAlone)
{
    add(u"A"_s);
    act(button(u"Full Router"_s), QAccessibleActionInterface::setFocusAction());
    press(Qt::Key_Space);
    for (int i = 0; i < 3; ++i)
        press(Qt::Key_Down);
    press(Qt::Key_Return);
    ASSERT_THAT(names(QAccessible::Dialog), ElementsAre("New Panel"));
    EXPECT_EQ(focusedName(), u"Panel Name"_s);
    type(u"B"_s);
    tabTo(u"1 CAM 1"_s);
    press(Qt::Key_Space);
    EXPECT_EQ(focusedName(), u"2 VTR 1"_s);
    press(Qt::Key_Space);
    tabTo(u"1 MON 1"_s);
    press(Qt::Key_Return);
    tabTo(u"Filter ports"_s);
    type(u"cam"_s);
    EXPECT_EQ(row(u"3 GFX 1"_s), nullptr);
    tabTo(u"Save (2×1)"_s);
    press(Qt::Key_Space);
    ASSERT_THAT(panels(), ElementsAre(u"A"_s, u"B"_s));

    // The tabs.
    act(tab(u"B"_s), QAccessibleActionInterface::setFocusAction());
    press(Qt::Key_Left);
    EXPECT_EQ(focusedName(), u"A"_s);
    press(Qt::Key_Space);
    EXPECT_TRUE(tab(u"A"_s)->state().selected);
    press(Qt::Key_F2);
    ASSERT_THAT(names(QAccessible::Dialog), ElementsAre("Edit Panel"));
    press(Qt::Key_Escape);
    EXPECT_EQ(focusedName(), u"A"_s);

    // The manager.
    pressOn(u"A"_s);
    choose(u"Edit Panels…"_s);
    ASSERT_THAT(names(QAccessible::Dialog), ElementsAre("Panels"));
    tabTo(u"A"_s);
    press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_THAT(panels(), ElementsAre(u"B"_s, u"A"_s));
    EXPECT_EQ(focusedName(), u"A"_s);
    press(Qt::Key_Down, Qt::AltModifier);
    press(Qt::Key_Up, Qt::AltModifier);
    EXPECT_THAT(panels(), ElementsAre(u"A"_s, u"B"_s));
    press(Qt::Key_Return);
    EXPECT_THAT(names(QAccessible::Dialog), ElementsAre("Panels", "Edit Panel"));
    press(Qt::Key_Escape);
    press(Qt::Key_Delete);
    ASSERT_THAT(names(QAccessible::Dialog), ElementsAre("Panels", "Delete “A”?"));
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    EXPECT_THAT(panels(), ElementsAre(u"B"_s));
    press(Qt::Key_Escape);
    EXPECT_THAT(names(QAccessible::Dialog), IsEmpty());
}

TEST_F(PanelsTest, TheTabOfThePanelThatIsShownIsInView)
{
    for (int i = 1; i <= 40; ++i)
        add(u"Panel number %1"_s.arg(i));
    const auto isInView = [this](const QString& name) {
        const auto rect = tab(name)->rect();
        return rect.left() > find(QAccessible::StaticText, u"PANELS"_s)->rect().right()
            && rect.right() < button(u"New panel"_s)->rect().left();
    };
    EXPECT_FALSE(isInView(u"Panel number 40"_s));
    demo().setActivePanelID(demo().panels()[39].id);
    queue.advance(std::chrono::seconds(2));
    settle();
    EXPECT_TRUE(isInView(u"Panel number 40"_s));
    EXPECT_FALSE(isInView(u"Panel number 1"_s));
}

TEST_F(PanelsTest, TheEditorOutlivesTheLinkAndItsPanel)
{
    add(u"A"_s);
    demo().setActivePanelID(demo().panels()[0].id);
    settle();
    act(tab(u"A"_s), QAccessibleActionInterface::setFocusAction());
    press(Qt::Key_F2);
    demo().disconnect();
    demo().deletePanel(demo().panels()[0]);
    settle();
    ASSERT_THAT(names(QAccessible::Dialog), ElementsAre("Edit Panel"));
    pressOn(u"Save (2×1)"_s);
    EXPECT_THAT(names(QAccessible::Dialog), IsEmpty());
    EXPECT_THAT(panels(), ElementsAre(u"A"_s));
}

} // namespace

} // namespace corvane
