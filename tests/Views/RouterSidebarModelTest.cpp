#include "Views/RouterSidebarModel.h"
#include "StoreTest.h"
#include "ViewModelTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using Kind = RouterCommand::Kind;

class RouterSidebarModelTest : public StoreTest {
protected:
    void SetUp() override
    {
        StoreTest::SetUp();
        model = std::make_unique<RouterSidebarModel>(*store, theme);
    }

    [[nodiscard]] RouterListModel& routers() const { return *model->routers(); }

    /// What the open menu offers.
    [[nodiscard]] QStringList menu() const
    {
        QStringList texts;
        for (const auto& entry : model->menu())
            texts.append(entry.value<RouterCommand>().text);
        return texts;
    }

    [[nodiscard]] RouterCommand command(int row, Kind kind) const
    {
        const auto commands = routers().commands(row);
        return *std::ranges::find(commands, kind, &RouterCommand::kind);
    }

    void askToDelete(int row) { model->perform(command(row, Kind::remove)); }

    std::unique_ptr<RouterSidebarModel> model;
};

TEST_F(RouterSidebarModelTest, OffersToDisconnectOnlyWhatIsConnected)
{
    struct Case {
        ConnectionStatus status;
        QStringList offered;
    };
    const Case cases[] = {
        {Disconnected{}, {u"Edit…"_s, u"Delete…"_s}},
        {Connecting{}, {u"Edit…"_s, u"Delete…"_s}},
        {ConnectionFailed{u"refused"_s}, {u"Edit…"_s, u"Delete…"_s}},
        {Connected{}, {u"Edit…"_s, u"Disconnect"_s, u"Delete…"_s}},
    };
    for (const auto& c : cases) {
        QStringList texts;
        for (const auto& offered : routerCommands(demo().id, c.status))
            texts.append(offered.text);
        EXPECT_EQ(texts, c.offered) << "status " << c.status.index();
    }
}

TEST_F(RouterSidebarModelTest, DrawsEachCommandWithItsSymbolAndOnlyTheLastOneInRed)
{
    const auto commands = routerCommands(demo().id, Connected{});
    ASSERT_EQ(commands.size(), 3);
    EXPECT_EQ(commands.at(0).symbol, u"pencil"_s);
    EXPECT_EQ(commands.at(1).symbol, u"bolt.slash"_s);
    EXPECT_EQ(commands.at(2).symbol, u"trash"_s);
    EXPECT_FALSE(commands.at(0).isDestructive || commands.at(1).isDestructive);
    EXPECT_TRUE(commands.at(2).isDestructive);
}

TEST_F(RouterSidebarModelTest, AnOpenMenuFollowsItsRouter)
{
    model->openMenu(1);
    EXPECT_EQ(menu(), (QStringList{u"Edit…"_s, u"Delete…"_s}));
    Tellings menus(*model, &RouterSidebarModel::menuChanged);
    comeUp(studio());
    EXPECT_EQ(menu(), (QStringList{u"Edit…"_s, u"Disconnect"_s, u"Delete…"_s}));
    EXPECT_EQ(menus.count(), 1);
    comeUp(demo());
    EXPECT_EQ(menus.count(), 0) << "another router's status";

    store->remove(demo());
    EXPECT_EQ(model->menuRow(), 0);
    store->remove(studio());
    EXPECT_EQ(model->menuRow(), -1);
    EXPECT_TRUE(menu().isEmpty());
    model->openMenu(7);
    EXPECT_EQ(model->menuRow(), -1);
}

TEST_F(RouterSidebarModelTest, DisconnectsTheRouterAndNoOther)
{
    comeUp(demo());
    comeUp(studio());
    const auto disconnect = command(1, Kind::disconnect);
    model->perform(disconnect);
    EXPECT_FALSE(store->controller(studio()).isConnected());
    EXPECT_TRUE(store->controller(demo()).isConnected());

    store->controller(studio()).connect();
    model->perform(disconnect);
    EXPECT_EQ(store->controller(studio()).status(), ConnectionStatus(Connecting{})) << "no longer offered";
    store->remove(studio());
    model->perform(disconnect);
    EXPECT_EQ(store->connections().size(), 1);
}

TEST_F(RouterSidebarModelTest, AsksForTheEditorWithTheRouterOrWithNone)
{
    Tellings editors(*model, &RouterSidebarModel::showingEditorChanged);
    model->perform(command(1, Kind::edit));
    EXPECT_TRUE(model->showingEditor());
    EXPECT_EQ(model->editing(), studio());
    model->setShowingEditor(false);
    model->addRouter();
    EXPECT_TRUE(model->showingEditor());
    EXPECT_EQ(model->editing(), std::nullopt);
    EXPECT_EQ(editors.count(), 3);
}

TEST_F(RouterSidebarModelTest, TellsBeforeADeletionWhatGoesWithTheRouter)
{
    struct Case {
        int panels;
        int salvos;
        QString message;
    };
    const auto lost = [](const QString& counts) {
        return u"Also deletes %1, and any custom labels for this router — none can be recovered."_s.arg(
            counts);
    };
    const Case cases[] = {
        {0, 0, u"Its saved settings and custom labels cannot be recovered."_s},
        {1, 0, lost(u"1 panel, 0 salvos"_s)},
        {0, 1, lost(u"0 panels, 1 salvo"_s)},
        {2, 1, lost(u"2 panels, 1 salvo"_s)},
        {1, 12, lost(u"1 panel, 12 salvos"_s)},
    };
    EXPECT_EQ(model->deleteMessage(), QString());
    for (const auto& c : cases) {
        store->panelStore().removeConnection(studio().id);
        store->salvoStore().removeConnection(studio().id);
        for (int i = 0; i < c.panels; ++i)
            store->panelStore().upsert(SubPanel(), studio().id);
        for (int i = 0; i < c.salvos; ++i)
            store->salvoStore().add({QUuid::createUuid(), QString::number(i), {}, {}, {}}, studio().id);
        askToDelete(1);
        EXPECT_EQ(model->deleteMessage(), c.message);
        model->cancelDelete();
    }
}

TEST_F(RouterSidebarModelTest, NamesTheRouterToBeDeletedAsItIsWritten)
{
    for (const auto& name : {u"Studio “B” %1"_s, u"استوديو"_s, u"🎬"_s, QString(200, u'W'), QString()}) {
        auto renamed = demo();
        renamed.name = name;
        store->setConnections({renamed});
        askToDelete(0);
        EXPECT_EQ(model->deleteTitle(), u"Delete “"_s + name + u"”?"_s);
        model->cancelDelete();
        renamed.name = u"Demo"_s;
        store->setConnections({renamed});
    }
}

TEST_F(RouterSidebarModelTest, DeletesOnlyWhatWasConfirmed)
{
    comeUp(demo());
    askToDelete(0);
    ASSERT_TRUE(model->isDeleting());
    model->cancelDelete();
    model->confirmDelete();
    ASSERT_EQ(store->connections().size(), 2);
    EXPECT_TRUE(store->controller(demo()).isConnected());

    const auto removed = demo().id;
    askToDelete(0);
    model->confirmDelete();
    EXPECT_FALSE(model->isDeleting());
    ASSERT_EQ(store->connections(), QList{studio()});
    EXPECT_EQ(store->selectedConnectionID(), studio().id);
    EXPECT_EQ(routers().selectedRow(), 0);
    EXPECT_EQ(routers().rowOf(removed), -1);
}

TEST_F(RouterSidebarModelTest, ADeleteDialogFollowsItsRouter)
{
    askToDelete(1);
    auto renamed = studio();
    renamed.name = u"Studio B"_s;
    store->update(renamed);
    EXPECT_EQ(model->deleteTitle(), u"Delete “Studio B”?"_s);
    comeUp(studio());
    EXPECT_TRUE(model->isDeleting());

    Tellings dialogs(*model, &RouterSidebarModel::deletingChanged);
    store->remove(studio());
    EXPECT_FALSE(model->isDeleting());
    EXPECT_EQ(dialogs.count(), 1);
    model->confirmDelete();
    EXPECT_EQ(store->connections().size(), 1);
}

TEST_F(RouterSidebarModelTest, KeysSelectAndActOnTheSelectedRouter)
{
    struct Case {
        const char* name;
        int key;
        Qt::KeyboardModifiers modifiers;
        int from;
        int to;
        bool isTaken = true;
    };
    const Case cases[] = {
        {"down", Qt::Key_Down, {}, 0, 1},
        {"down at the end", Qt::Key_Down, {}, 1, 1},
        {"up", Qt::Key_Up, Qt::KeypadModifier, 1, 0},
        {"up at the top", Qt::Key_Up, {}, 0, 0},
        {"end", Qt::Key_End, {}, 0, 1},
        {"home", Qt::Key_Home, {}, 1, 0},
        {"down from nothing", Qt::Key_Down, {}, -1, 0},
        {"with Ctrl", Qt::Key_Down, Qt::ControlModifier, 0, 0, false},
        {"with Shift", Qt::Key_Down, Qt::ShiftModifier, 0, 0, false},
        {"a letter", Qt::Key_A, {}, 0, 0, false},
        {"F10 alone", Qt::Key_F10, {}, 0, 0, false},
        {"delete nothing", Qt::Key_Delete, {}, -1, -1, false},
    };
    for (const auto& c : cases) {
        store->setSelectedConnectionID(
            c.from < 0 ? std::nullopt : std::optional(store->connections().at(c.from).id));
        EXPECT_EQ(model->pressKey(c.key, c.modifiers), c.isTaken) << c.name;
        EXPECT_EQ(routers().selectedRow(), c.to) << c.name;
        EXPECT_FALSE(model->isDeleting()) << c.name;
        EXPECT_EQ(model->menuRow(), -1) << c.name;
    }
}

TEST_F(RouterSidebarModelTest, KeysAskToDeleteAndForTheMenu)
{
    routers().select(1);
    for (const int key : {Qt::Key_Delete, Qt::Key_Backspace}) {
        EXPECT_TRUE(model->pressKey(key, Qt::NoModifier));
        EXPECT_EQ(model->deleting(), studio());
        model->cancelDelete();
    }
    QList<int> asked;
    QObject::connect(model.get(), &RouterSidebarModel::menuRequested, [&](int row) { asked.append(row); });
    EXPECT_TRUE(model->pressKey(Qt::Key_Menu, Qt::NoModifier));
    EXPECT_TRUE(model->pressKey(Qt::Key_F10, Qt::ShiftModifier));
    EXPECT_EQ(asked, (QList{1, 1}));
    EXPECT_EQ(model->menuRow(), 1);
}

} // namespace

} // namespace corvane
