#include "WindowTest.h"

#include <QQuickItem>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

using testing::ElementsAre;

class RouterSidebarTest : public WindowTest {
protected:
    [[nodiscard]] QAccessibleInterface* row(const QString& name) const
    {
        return find(QAccessible::ListItem, name);
    }
    [[nodiscard]] QAccessibleInterface* dialog() const { return find(QAccessible::Dialog); }
    [[nodiscard]] QAccessibleInterface* button(const QString& name) const
    {
        return find(QAccessible::Button, name);
    }

    /// The entries of the menu that is open.
    [[nodiscard]] std::vector<std::string> menu() const
    {
        std::vector<std::string> names;
        for (const auto* const entry : findAll(QAccessible::MenuItem))
            names.push_back(entry->text(QAccessible::Name).toStdString());
        return names;
    }

    [[nodiscard]] std::vector<std::string> rows() const
    {
        std::vector<std::string> names;
        for (const auto* const item : findAll(QAccessible::ListItem))
            names.push_back(item->text(QAccessible::Name).toStdString());
        return names;
    }

    /// Selects a router, and leaves the keyboard in the list.
    void choose(const QString& name) { act(row(name), QAccessibleActionInterface::pressAction()); }

    [[nodiscard]] QString nameOfFocused() const
    {
        return focused() ? focused()->text(QAccessible::Name) : QString();
    }
};

TEST_F(RouterSidebarTest, ReadsOutEachRouterWithWhereItIsAndHowItIs)
{
    const auto* const list = find(QAccessible::List, u"Routers"_s);
    ASSERT_NE(list, nullptr);
    ASSERT_EQ(list->childCount(), 5);
    const auto* const demo = list->child(0);
    EXPECT_EQ(demo->text(QAccessible::Name), u"Demo Router"_s);
    EXPECT_EQ(demo->text(QAccessible::Description), u"In-memory demo router, Online"_s);
    EXPECT_TRUE(demo->state().selected);
    const auto* const conference = list->child(4);
    EXPECT_EQ(conference->text(QAccessible::Description), u"192.168.1.72:6107, Error"_s);
    EXPECT_FALSE(conference->state().selected);

    report(u"MX2 Conference"_s, driverEvent::Connected{});
    EXPECT_EQ(conference->text(QAccessible::Description), u"192.168.1.72:6107, Online"_s);
}

TEST_F(RouterSidebarTest, OpensTheMenuUnderThePointerAndSelectsNothing)
{
    auto* const grid = focused();
    click(Qt::RightButton, *row(u"KUMO Stage"_s));
    EXPECT_THAT(menu(), ElementsAre("Edit…", "Disconnect", "Delete…"));
    EXPECT_TRUE(row(u"Demo Router"_s)->state().selected);

    report(u"KUMO Stage"_s, driverEvent::Disconnected{});
    settle();
    EXPECT_THAT(menu(), ElementsAre("Edit…", "Delete…"));
    press(Qt::Key_Escape);
    EXPECT_TRUE(menu().empty());
    EXPECT_EQ(focused(), grid);
}

TEST_F(RouterSidebarTest, OpensTheMenuFromTheKeyboardAndDoesWhatIsChosen)
{
    choose(u"KUMO Stage"_s);
    press(Qt::Key_Menu);
    press(Qt::Key_Escape);
    EXPECT_EQ(nameOfFocused(), u"KUMO Stage"_s);
    press(Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_THAT(menu(), ElementsAre("Edit…", "Disconnect", "Delete…"));
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_TRUE(menu().empty());
    EXPECT_EQ(nameOfFocused(), u"KUMO Stage"_s);
    EXPECT_EQ(controller(u"KUMO Stage"_s).status(), ConnectionStatus(Disconnected{}));
}

TEST_F(RouterSidebarTest, OffersScreenReadersTheSameCommands)
{
    EXPECT_EQ(row(u"KUMO Stage"_s)->actionInterface()->actionNames(),
        (QStringList{u"Press"_s, u"Edit…"_s, u"Disconnect"_s, u"Delete…"_s, u"SetFocus"_s}));
    EXPECT_EQ(row(u"Ultrix Main"_s)->actionInterface()->actionNames(),
        (QStringList{u"Press"_s, u"Edit…"_s, u"Delete…"_s, u"SetFocus"_s}));
    act(row(u"KUMO Stage"_s), u"Disconnect"_s);
    EXPECT_FALSE(controller(u"KUMO Stage"_s).isConnected());
    act(row(u"KUMO Stage"_s), u"Disconnect"_s);
    act(row(u"Ultrix Main"_s), QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(row(u"Ultrix Main"_s)->state().selected);
    EXPECT_TRUE(row(u"Ultrix Main"_s)->state().focused);
}

TEST_F(RouterSidebarTest, MovesTheKeyboardFromTheButtonToTheListAndOn)
{
    act(button(u"Add Router"_s), QAccessibleActionInterface::setFocusAction());
    ASSERT_EQ(nameOfFocused(), u"Add Router"_s);
    press(Qt::Key_Tab);
    EXPECT_EQ(nameOfFocused(), u"Demo Router"_s);
    press(Qt::Key_Down);
    EXPECT_EQ(nameOfFocused(), u"Studio Videohub"_s);
    EXPECT_EQ(store->selectedConnection(), router(u"Studio Videohub"_s));
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(nameOfFocused(), u"Add Router"_s);
}

TEST_F(RouterSidebarTest, AsksBeforeItDeletes)
{
    for (const auto key : {Qt::Key_Delete, Qt::Key_Backspace}) {
        choose(u"Studio Videohub"_s);
        press(key);
        ASSERT_NE(dialog(), nullptr);
        EXPECT_EQ(dialog()->text(QAccessible::Name), u"Delete “Studio Videohub”?"_s);
        EXPECT_EQ(dialog()->text(QAccessible::Description),
            u"Its saved settings and custom labels cannot be recovered."_s);
        press(Qt::Key_Escape);
        EXPECT_EQ(dialog(), nullptr);
        EXPECT_EQ(nameOfFocused(), u"Studio Videohub"_s);
    }
    EXPECT_EQ(store->connections().size(), 5);
}

TEST_F(RouterSidebarTest, ReturnDeletesOnlyFromTheButtonThatSaysSo)
{
    choose(u"Studio Videohub"_s);
    press(Qt::Key_Delete);
    EXPECT_EQ(nameOfFocused(), u"Cancel"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(dialog(), nullptr);
    ASSERT_EQ(store->connections().size(), 5);

    press(Qt::Key_Delete);
    press(Qt::Key_Tab);
    EXPECT_EQ(nameOfFocused(), u"Delete"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_THAT(rows(), ElementsAre("Demo Router", "Ultrix Main", "KUMO Stage", "MX2 Conference"));
    EXPECT_TRUE(row(u"Demo Router"_s)->state().selected);
    EXPECT_EQ(nameOfFocused(), u"Demo Router"_s);
}

TEST_F(RouterSidebarTest, ReturnInTheDialogTakesNoStagedRoute)
{
    auto& demo = controller(u"Demo Router"_s);
    demo.setTakeMode(TakeMode::confirm);
    demo.selectDestination(4);
    demo.setPendingSource(8);
    const auto before = demo.state().routing;
    choose(u"Demo Router"_s);
    press(Qt::Key_Delete);
    press(Qt::Key_Return);
    EXPECT_TRUE(demo.pendingTake());
    EXPECT_EQ(demo.state().routing, before);
}

TEST_F(RouterSidebarTest, DeletesOneAfterTheOtherUntilNoneIsLeft)
{
    for (const auto routers = store->connections(); const auto& router : routers) {
        act(row(router.name), u"Delete…"_s);
        act(button(u"Delete"_s), QAccessibleActionInterface::pressAction());
    }
    EXPECT_TRUE(rows().empty());
    EXPECT_NE(find(QAccessible::Grouping, u"Select a Router"_s), nullptr);
    press(Qt::Key_Delete);
    press(Qt::Key_Menu);
    EXPECT_EQ(dialog(), nullptr);
}

TEST_F(RouterSidebarTest, KeepsTheSelectionWhenAnotherRouterGoes)
{
    choose(u"KUMO Stage"_s);
    for (const auto& name : {u"Studio Videohub"_s, u"MX2 Conference"_s}) {
        act(row(name), u"Delete…"_s);
        act(button(u"Delete"_s), QAccessibleActionInterface::pressAction());
        EXPECT_TRUE(row(u"KUMO Stage"_s)->state().selected);
        EXPECT_EQ(nameOfFocused(), u"KUMO Stage"_s);
    }
}

TEST_F(RouterSidebarTest, ARouterThatGoesTakesItsMenuAndItsDialogAlong)
{
    auto* const grid = focused();
    click(Qt::RightButton, *row(u"KUMO Stage"_s));
    store->remove(router(u"KUMO Stage"_s));
    settle();
    EXPECT_TRUE(menu().empty());
    EXPECT_EQ(focused(), grid);
    act(row(u"Ultrix Main"_s), u"Delete…"_s);
    store->remove(router(u"Ultrix Main"_s));
    settle();
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_EQ(focused(), grid);
}

TEST_F(RouterSidebarTest, StaysWhereItIsScrolledToWhenARouterGoes)
{
    QList<RouterConnection> many = store->connections();
    for (int i = 0; i < 60; ++i) {
        RouterConnection spare;
        spare.name = u"Spare %1"_s.arg(i);
        many.append(spare);
    }
    store->setConnections(many);
    settle();
    act(row(u"Spare 40"_s), QAccessibleActionInterface::setFocusAction());
    settle();
    const auto place = row(u"Spare 35"_s)->rect();
    act(row(u"Spare 38"_s), u"Delete…"_s);
    act(button(u"Delete"_s), QAccessibleActionInterface::pressAction());
    EXPECT_EQ(row(u"Spare 38"_s), nullptr);
    EXPECT_EQ(row(u"Spare 35"_s)->rect(), place);
}

TEST_F(RouterSidebarTest, KeepsNamesOfEveryKindInTheirPlace)
{
    window->resize(window->minimumSize());
    for (const auto& name : {u"Studio “B” <b>%1</b>"_s, u"استوديو الأخبار الرئيسي في الطابق الثالث"_s,
             u"🎬🎥 Kamera"_s, QString(200, u'W'), u"Two\nlines"_s, QString()}) {
        auto routers = store->connections();
        routers[1].name = name;
        store->setConnections(routers);
        settle();
        const auto list = find(QAccessible::List, u"Routers"_s)->rect();
        EXPECT_TRUE(list.contains(row(name)->rect()));

        act(row(name), u"Delete…"_s);
        EXPECT_EQ(dialog()->text(QAccessible::Name), u"Delete “"_s + name + u"”?"_s);
        for (const auto& text : {u"Cancel"_s, u"Delete"_s})
            EXPECT_TRUE(dialog()->rect().contains(button(text)->rect())) << text.toStdString();
        EXPECT_TRUE(QRect({}, window->size()).contains(dialog()->rect()));
        act(button(u"Cancel"_s), QAccessibleActionInterface::pressAction());
    }
}

} // namespace

} // namespace corvane
