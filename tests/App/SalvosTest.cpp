#include "WindowTest.h"

#include <QQuickItem>
#include <QtTest/QTest>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

using testing::ElementsAre;

/// The demo router with its manager of salvos.
class SalvosTest : public WindowTest {
protected:
    [[nodiscard]] MatrixController& demo() const { return controller(u"Demo Router"_s); }
    [[nodiscard]] QAccessibleInterface* button(const QString& name) const
    {
        return find(QAccessible::Button, name);
    }
    [[nodiscard]] QAccessibleInterface* row(const QString& name) const
    {
        return find(QAccessible::ListItem, name);
    }
    [[nodiscard]] bool says(const QString& text) const
    {
        return find(QAccessible::StaticText, text) != nullptr;
    }
    [[nodiscard]] QString focusedName() const
    {
        return focused() ? focused()->text(QAccessible::Name) : u"nothing"_s;
    }
    /// The dialogs from the bottom up.
    [[nodiscard]] std::vector<std::string> dialogs() const
    {
        std::vector<std::string> names;
        for (const auto* const dialog : findAll(QAccessible::Dialog))
            names.push_back(dialog->text(QAccessible::Name).toStdString());
        return names;
    }

    void pressOn(const QString& name) { act(button(name), QAccessibleActionInterface::pressAction()); }
    void focusOn(const QString& name) { act(button(name), QAccessibleActionInterface::setFocusAction()); }
    void openSheet() { pressOn(u"Salvos"_s); }
    /// Tally and lock have reached the screen.
    void follow()
    {
        queue.advance(std::chrono::seconds(1));
        settle();
    }
    void type(const QString& text)
    {
        for (const QChar letter : text)
            QTest::keyClick(window.get(), letter.toLatin1());
        settle();
    }
    void changeRoutesAndLockOne()
    {
        for (qint64 destination = 0; destination < 5; ++destination)
            demo().take(destination + 3, destination);
        demo().toggleLock(2);
        follow();
    }
    /// By the keyboard, with the sheet open and the list in front.
    void tabTo(const QString& name)
    {
        for (int i = 0; i < 12 && focusedName() != name; ++i)
            press(Qt::Key_Tab);
        ASSERT_EQ(focusedName(), name);
    }
};

TEST_F(SalvosTest, ByTheKeyboardAlone)
{
    focusOn(u"Salvos"_s);
    press(Qt::Key_Space);
    ASSERT_THAT(dialogs(), ElementsAre("Salvos"));
    EXPECT_EQ(focusedName(), u"Save Current Routing"_s);
    press(Qt::Key_Space);
    ASSERT_THAT(dialogs(), ElementsAre("Salvos", "New Salvo"));
    type(u"Morning"_s);
    press(Qt::Key_Return);
    ASSERT_THAT(dialogs(), ElementsAre("Salvos"));
    ASSERT_NE(row(u"Morning"_s), nullptr);
    EXPECT_EQ(row(u"Morning"_s)->text(QAccessible::Description), u"Active — matches current routing"_s);
    tabTo(u"New Salvo"_s);
    press(Qt::Key_Space);
    press(Qt::Key_Return);
    ASSERT_NE(row(u"Salvo 2"_s), nullptr);

    changeRoutesAndLockOne();
    EXPECT_EQ(row(u"Morning"_s)->text(QAccessible::Description), u"12 changes, 1 locked"_s);
    tabTo(u"Morning"_s);
    press(Qt::Key_Space);
    EXPECT_TRUE(says(u"Video MON 1 ← CAM 1 was SRV 1"_s));
    EXPECT_TRUE(says(u"REC 1 — locked, will skip"_s));
    EXPECT_TRUE(says(u"33 already match"_s));
    tabTo(u"Fire Morning"_s);
    press(Qt::Key_Return);
    ASSERT_THAT(dialogs(), ElementsAre("Salvos", "Fire “Morning”?"));
    EXPECT_TRUE(says(u"Changes 12 crosspoints (33 already match). Skipping REC 1 (locked)."_s));
    EXPECT_EQ(focusedName(), u"Cancel"_s) << "Return must not fire by itself";
    press(Qt::Key_Tab);
    ASSERT_EQ(focusedName(), u"Fire — 12 Changes"_s);
    press(Qt::Key_Return);
    follow();
    EXPECT_EQ(demo().state().source(0, 0), 0);
    EXPECT_EQ(demo().state().source(2, 0), 5) << "locked";
    EXPECT_EQ(row(u"Morning"_s)->text(QAccessible::Description),
        u"Differs only on locked destinations, 1 locked"_s);

    tabTo(u"Morning"_s);
    press(Qt::Key_F2);
    ASSERT_THAT(dialogs(), ElementsAre("Salvos", "Rename Salvo"));
    type(u"sALVO 2"_s);
    press(Qt::Key_Return);
    ASSERT_THAT(dialogs(), ElementsAre("Salvos", "Name Already Used"));
    EXPECT_TRUE(says(u"A salvo named “sALVO 2” already exists."_s));
    press(Qt::Key_Return);
    EXPECT_EQ(focusedName(), u"Morning"_s);
    press(Qt::Key_Delete);
    ASSERT_THAT(dialogs(), ElementsAre("Salvos", "Delete “Morning”?"));
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    EXPECT_EQ(row(u"Morning"_s), nullptr);
    EXPECT_EQ(focusedName(), u"Salvo 2"_s);
    press(Qt::Key_Menu);
    press(Qt::Key_Escape);
    EXPECT_THAT(dialogs(), ElementsAre("Salvos"));
    press(Qt::Key_Escape);
    EXPECT_TRUE(dialogs().empty());
    EXPECT_EQ(focusedName(), u"Salvos"_s) << "where the keyboard was";
}

TEST_F(SalvosTest, ByTheMouse)
{
    const auto clickOn = [this](const QString& name) { click(Qt::LeftButton, *button(name)); };
    clickOn(u"Salvos"_s);
    clickOn(u"Save Current Routing"_s);
    clickOn(u"Save"_s);
    ASSERT_NE(row(u"Salvo 1"_s), nullptr);
    changeRoutesAndLockOne();
    click(Qt::LeftButton, *row(u"Salvo 1"_s));
    EXPECT_TRUE(says(u"33 already match"_s));
    click(Qt::LeftButton, *row(u"Salvo 1"_s));
    EXPECT_FALSE(says(u"33 already match"_s));
    clickOn(u"Fire Salvo 1"_s);
    clickOn(u"Fire — 12 Changes"_s);
    follow();
    EXPECT_EQ(demo().state().source(0, 0), 0);
    clickOn(u"Update Salvo 1 from current routing"_s);
    clickOn(u"Update"_s);
    EXPECT_EQ(
        row(u"Salvo 1"_s)->text(QAccessible::Description), u"Active — matches current routing, 1 locked"_s);
    clickOn(u"New Salvo"_s);
    clickOn(u"Save"_s);
    click(Qt::RightButton, *row(u"Salvo 2"_s));
    std::vector<std::string> menu;
    for (const auto* const entry : findAll(QAccessible::MenuItem))
        menu.push_back(entry->text(QAccessible::Name).toStdString());
    EXPECT_THAT(menu, ElementsAre("Fire", "Rename", "Update from Current Routing", "Delete"));
    click(Qt::LeftButton, *find(QAccessible::MenuItem, u"Delete"_s));
    clickOn(u"Delete"_s);
    EXPECT_EQ(row(u"Salvo 2"_s), nullptr);
    clickOn(u"Done"_s);
    EXPECT_TRUE(dialogs().empty());
    ASSERT_NE(button(u"Salvo 1"_s), nullptr) << "its chip";
    clickOn(u"Salvo 1"_s);
    EXPECT_THAT(dialogs(), ElementsAre("Fire “Salvo 1”?"));
    clickOn(u"Cancel"_s);
    click(Qt::RightButton, *button(u"Salvo 1"_s));
    click(Qt::LeftButton, *find(QAccessible::MenuItem, u"Delete Salvo"_s));
    clickOn(u"Delete"_s);
    EXPECT_EQ(button(u"Salvo 1"_s), nullptr);
    EXPECT_TRUE(demo().salvos().isEmpty());
}

TEST_F(SalvosTest, ScreenReadersFireAndPreviewByTheRow)
{
    demo().saveSalvo(u"Morning"_s, {});
    openSheet();
    EXPECT_EQ(row(u"Morning"_s)->actionInterface()->actionNames(),
        (QStringList{u"Press"_s, u"Fire"_s, u"Preview Changes"_s, u"Rename"_s,
            u"Update from Current Routing"_s, u"Delete"_s, u"SetFocus"_s}));
    act(row(u"Morning"_s), u"Preview Changes"_s);
    EXPECT_TRUE(says(u"Routing already matches this salvo."_s));
    act(row(u"Morning"_s), u"Collapse"_s);
    EXPECT_FALSE(says(u"Routing already matches this salvo."_s));
    act(row(u"Morning"_s), u"Fire"_s);
    EXPECT_THAT(dialogs(), ElementsAre("Salvos", "Fire “Morning”?"));
    EXPECT_TRUE(says(u"Routing already matches — firing re-asserts 48 crosspoints."_s));
}

TEST_F(SalvosTest, TabStaysInTheSheet)
{
    demo().saveSalvo(u"Morning"_s, {});
    openSheet();
    QSet<QString> seen;
    for (const auto key : {Qt::Key_Tab, Qt::Key_Backtab}) {
        for (int i = 0; i < 10; ++i) {
            press(key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
            seen.insert(focusedName());
        }
    }
    EXPECT_EQ(seen,
        (QSet<QString>{u"New Salvo"_s, u"Done"_s, u"Morning"_s, u"Rename"_s, u"Delete"_s,
            u"Update Morning from current routing"_s, u"Fire Morning"_s}));
}

TEST_F(SalvosTest, ARouterThatDropsLeavesTheSheetAndTakesTheFireButtons)
{
    demo().saveSalvo(u"Morning"_s, {});
    follow();
    pressOn(u"Morning"_s);
    press(Qt::Key_Tab);
    ASSERT_EQ(focusedName(), u"Fire — Re-assert 48 Routes"_s);
    demo().disconnect();
    follow();
    ASSERT_THAT(dialogs(), ElementsAre("Fire “Morning”?"));
    EXPECT_TRUE(says(u"Offline — salvos can be edited but not fired."_s));
    EXPECT_EQ(button(u"Fire — Re-assert 48 Routes"_s), nullptr);
    EXPECT_EQ(focusedName(), u"Cancel"_s);
    press(Qt::Key_Return);
    EXPECT_TRUE(dialogs().empty());

    demo().connect();
    follow();
    openSheet();
    demo().disconnect();
    follow();
    ASSERT_THAT(dialogs(), ElementsAre("Salvos"));
    EXPECT_TRUE(says(u"Offline — salvos can be edited but not fired"_s));
    EXPECT_EQ(row(u"Morning"_s)->text(QAccessible::Description), u"48 routes"_s);
    pressOn(u"Fire Morning"_s);
    EXPECT_THAT(dialogs(), ElementsAre("Salvos"));
    act(row(u"Morning"_s), u"Rename"_s);
    type(u"Noon"_s);
    press(Qt::Key_Return);
    EXPECT_NE(row(u"Noon"_s), nullptr);
    press(Qt::Key_Escape);
    EXPECT_NE(button(u"Connect"_s), nullptr);
}

TEST_F(SalvosTest, ASalvoDeletedElsewhereTakesItsDialogsAlong)
{
    const auto deleteIt = [this] { demo().deleteSalvo(demo().salvos().constFirst()); };
    for (const auto& action : {u"Fire"_s, u"Rename"_s, u"Update from Current Routing"_s, u"Delete"_s}) {
        SCOPED_TRACE(action.toStdString());
        demo().saveSalvo(u"Morning"_s, {});
        demo().saveSalvo(u"Noon"_s, {});
        demo().take((demo().state().source(0, 0).value_or(0) + 1) % 8, 0);
        follow();
        openSheet();
        act(row(u"Morning"_s), action);
        ASSERT_EQ(dialogs().size(), 2U);
        deleteIt();
        follow();
        EXPECT_THAT(dialogs(), ElementsAre("Salvos"));
        press(Qt::Key_Escape);
        EXPECT_TRUE(dialogs().empty());
        deleteIt();
    }
}

TEST_F(SalvosTest, TheKeyboardGoesThroughTheChipsAndActsOnThem)
{
    for (const auto& name : {u"Morning"_s, u"Noon"_s, u"Night"_s})
        demo().saveSalvo(name, {});
    follow();
    focusOn(u"Morning"_s);
    press(Qt::Key_Right);
    EXPECT_EQ(focusedName(), u"Noon"_s);
    press(Qt::Key_Left);
    EXPECT_EQ(focusedName(), u"Morning"_s);
    press(Qt::Key_Menu);
    ASSERT_NE(find(QAccessible::MenuItem, u"Update from Current Routing…"_s), nullptr);
    press(Qt::Key_Escape);
    EXPECT_EQ(focusedName(), u"Morning"_s);
    press(Qt::Key_Space);
    EXPECT_THAT(dialogs(), ElementsAre("Fire “Morning”?"));
    press(Qt::Key_Escape);
    EXPECT_EQ(focusedName(), u"Morning"_s);
    for (const auto key : {Qt::Key_Delete, Qt::Key_Backspace}) {
        press(key);
        EXPECT_THAT(dialogs(), ElementsAre("Delete “Morning”?"));
        press(Qt::Key_Return);
        EXPECT_TRUE(dialogs().empty());
    }
    EXPECT_EQ(demo().salvos().size(), 3);
    tabTo(u"Manage salvos"_s);
    press(Qt::Key_Return);
    EXPECT_THAT(dialogs(), ElementsAre("Salvos"));
}

TEST_F(SalvosTest, NamesOfEveryKindStayInTheirPlace)
{
    window->resize(window->minimumSize());
    for (const auto& name : {QString(10'000, u'W'), u"استوديو الأخبار الرئيسي"_s,
             u"<b>“Late” & 'Night'</b>"_s, u"two\nlines\r\nand more"_s, u"\u202Egnihtemos"_s}) {
        SCOPED_TRACE(name.left(20).toStdString());
        // As a file may hold it.
        store->salvoStore().add({QUuid::createUuid(), name, {{0, 0, 5}}, {}, {}}, demo().id());
        demo().deleteSalvo({});
        follow();
        openSheet();
        const auto* const list = find(QAccessible::List, u"Salvos"_s);
        ASSERT_NE(list, nullptr);
        auto* const shown = list->child(1);
        const auto shownName = shown->text(QAccessible::Name);
        EXPECT_FALSE(shownName.contains(u'\n'));
        EXPECT_LE(shownName.size(), 201);
        EXPECT_TRUE(list->rect().contains(shown->rect()));
        ASSERT_GE(shown->childCount(), 2);
        for (int i = 0; i < shown->childCount(); ++i)
            EXPECT_TRUE(shown->rect().contains(shown->child(i)->rect()));
        act(shown, u"Fire"_s);
        const auto* const dialog = findAll(QAccessible::Dialog).constLast();
        EXPECT_TRUE(QRect({}, window->size()).contains(dialog->rect()));
        EXPECT_TRUE(dialog->rect().contains(button(u"Fire — 1 Change"_s)->rect()));
        press(Qt::Key_Escape);
        press(Qt::Key_Escape);
        demo().deleteSalvo(demo().salvos().constFirst());
        settle();
    }
}

} // namespace

} // namespace corvane
