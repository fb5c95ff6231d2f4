#include "Views/Sidebar/RouterSidebarModel.h"
#include "StoreTest.h"
#include "ViewModelTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

class RouterSidebarModelTest : public StoreTest {
protected:
    void SetUp() override
    {
        StoreTest::SetUp();
        model = std::make_unique<RouterSidebarModel>(*store, theme);
        QObject::connect(model.get(), &RouterSidebarModel::dataChanged, model.get(),
            [this](const QModelIndex& from, const QModelIndex&) { m_changed.append(from.row()); });
        QObject::connect(
            model.get(), &RouterSidebarModel::rowWanted, model.get(), [this](int row) { wanted = row; });
    }

    [[nodiscard]] const RouterRow& row(int position) const { return model->rows().at(position); }
    [[nodiscard]] QStringList names() const
    {
        QStringList names;
        for (const auto& row : model->rows())
            names.append(row.name);
        return names;
    }
    [[nodiscard]] QStringList menu(int row)
    {
        QStringList texts;
        for (const auto& action : model->menu(row))
            texts.append(action.text);
        return texts;
    }
    void choose(int row, const QString& text) { runAction(model->menu(row), text); }
    void askToDelete(int row) { choose(row, u"Delete…"_s); }

    /// The rows that were told of since the last call.
    [[nodiscard]] QList<int> changedRows() { return std::exchange(m_changed, {}); }

    std::unique_ptr<RouterSidebarModel> model;
    std::optional<int> wanted;

private:
    QList<int> m_changed;
};

TEST_F(RouterSidebarModelTest, ListsEachRouterInItsPlace)
{
    ASSERT_EQ(names(), (QStringList{u"Demo"_s, u"Studio"_s}));
    EXPECT_EQ(row(0).endpoint, u"In-memory demo router"_s);
    EXPECT_EQ(row(1).endpoint, u"10.0.0.5:80"_s);
    EXPECT_EQ(row(1).symbol, u"network"_s);
    EXPECT_EQ(row(1).tint, theme.palette().teal);
    const auto second = model->index(1);
    EXPECT_EQ(model->data(second, Qt::DisplayRole), u"Studio"_s);
    EXPECT_EQ(model->data(second, RouterSidebarModel::rowRole).value<RouterRow>(), row(1));
    EXPECT_EQ(model->speech(1),
        (RowSpeech{.name = u"Studio"_s,
            .description = u"10.0.0.5:80, Offline"_s,

            .isSelectable = true}));
    EXPECT_TRUE(model->speech(0).isSelected);
    EXPECT_EQ(model->speech(2), RowSpeech{});
}

TEST_F(RouterSidebarModelTest, FollowsTheStatusOfEachRouterInItsOwnRow)
{
    comeUp(studio());
    EXPECT_EQ(row(1).status.word, u"Online"_s);
    EXPECT_EQ(row(0).status.word, u"Offline"_s);
    EXPECT_EQ(changedRows(), (QList{1, 1}));

    auto edited = studio();
    edited.name = u"Studio B"_s;
    store->update(edited);
    EXPECT_EQ(row(1).name, u"Studio B"_s);
    EXPECT_EQ(row(1).status.word, u"Offline"_s);
    comeUp(studio());
    EXPECT_EQ(row(1).status.word, u"Online"_s) << "the new controller's";
}

TEST_F(RouterSidebarModelTest, SelectsInTheStoreAndFollowsIt)
{
    EXPECT_EQ(model->startRow(), 0);
    model->press(1);
    EXPECT_EQ(store->selectedConnectionID(), studio().id);
    EXPECT_EQ(model->startRow(), 1);
    EXPECT_EQ(wanted, 1);
    EXPECT_EQ(changedRows(), (QList{0, 1}));
    for (const int beyond : {-1, 2}) {
        model->press(beyond);
        EXPECT_EQ(model->startRow(), 1);
    }
    model->arrive(0);
    EXPECT_EQ(store->selectedConnectionID(), demo().id);
    store->setSelectedConnectionID(std::nullopt);
    EXPECT_EQ(model->startRow(), -1);
    EXPECT_EQ(wanted, -1);
}

TEST_F(RouterSidebarModelTest, FollowsAnyOtherList)
{
    RouterConnection first;
    first.name = u"First"_s;
    RouterConnection last;
    last.name = u"Last"_s;
    const QList<QList<RouterConnection>> lists{{studio(), demo()}, {first, studio(), demo()},
        {first, demo(), last}, {last}, {}, {demo(), demo(), studio()}, {studio(), last}};
    for (const auto& list : lists) {
        store->setConnections(list);
        QStringList expected;
        for (const auto& router : list)
            expected.append(router.name);
        EXPECT_EQ(names(), expected);
    }
    (void)changedRows();
    comeUp(lists.last().at(1));
    EXPECT_EQ(changedRows(), (QList{1, 1}));
    store->add(first, ConnectionStore::Persist::yes);
    EXPECT_EQ(model->startRow(), 2);
    EXPECT_EQ(wanted, 2);
}

TEST_F(RouterSidebarModelTest, OffersToDisconnectOnlyWhatIsConnected)
{
    EXPECT_EQ(menu(1), (QStringList{u"Edit…"_s, u"Delete…"_s}));
    store->controller(studio()).connect();
    EXPECT_EQ(menu(1), (QStringList{u"Edit…"_s, u"Delete…"_s})) << "connecting";
    comeUp(studio());
    comeUp(demo());
    const auto offered = model->menu(1);
    EXPECT_EQ(menu(1), (QStringList{u"Edit…"_s, u"Disconnect"_s, u"Delete…"_s}));
    EXPECT_EQ(offered.at(0).symbol, u"pencil"_s);
    EXPECT_EQ(offered.at(1).symbol, u"bolt.slash"_s);
    EXPECT_EQ(offered.at(2).symbol, u"trash"_s);
    EXPECT_EQ(offered.at(0).key, QKeyCombination(Qt::Key_F2));
    EXPECT_EQ(offered.at(2).key, QKeyCombination(Qt::Key_Delete));
    EXPECT_FALSE(offered.at(0).isDestructive || offered.at(1).isDestructive);
    EXPECT_TRUE(offered.at(2).isDestructive);

    choose(1, u"Disconnect"_s);
    EXPECT_FALSE(store->controller(studio()).isConnected());
    EXPECT_TRUE(store->controller(demo()).isConnected());
    EXPECT_TRUE(menu(-1).isEmpty());
    EXPECT_TRUE(menu(2).isEmpty());
    store->remove(studio());
    for (const auto& action : offered)
        action.run();
    EXPECT_FALSE(model->isDeleting() || model->showingEditor()) << "the router is gone";
}

TEST_F(RouterSidebarModelTest, AsksForTheEditorWithTheRouterOrWithNone)
{
    Tellings editors(*model, &RouterSidebarModel::showingEditorChanged);
    choose(1, u"Edit…"_s);
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
    EXPECT_EQ(model->deleteTitle(), QString());
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

TEST_F(RouterSidebarModelTest, DeletesOnlyWhatWasConfirmed)
{
    comeUp(demo());
    askToDelete(0);
    ASSERT_TRUE(model->isDeleting());
    model->cancelDelete();
    model->confirmDelete();
    ASSERT_EQ(store->connections().size(), 2);
    EXPECT_TRUE(store->controller(demo()).isConnected());

    askToDelete(0);
    model->confirmDelete();
    EXPECT_FALSE(model->isDeleting());
    ASSERT_EQ(store->connections(), QList{studio()});
    EXPECT_EQ(names(), QStringList{u"Studio"_s});
    EXPECT_EQ(model->startRow(), 0);
}

TEST_F(RouterSidebarModelTest, ADeleteDialogFollowsItsRouter)
{
    askToDelete(1);
    auto renamed = studio();
    renamed.name = u"Studio “B” %1"_s;
    store->update(renamed);
    EXPECT_EQ(model->deleteTitle(), u"Delete “Studio “B” %1”?"_s);
    comeUp(studio());
    EXPECT_TRUE(model->isDeleting());

    Tellings dialogs(*model, &RouterSidebarModel::deletingChanged);
    store->remove(studio());
    EXPECT_FALSE(model->isDeleting());
    EXPECT_EQ(dialogs.count(), 1);
    model->confirmDelete();
    EXPECT_EQ(store->connections().size(), 1);
}

} // namespace

} // namespace corvane
