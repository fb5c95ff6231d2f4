#include "Controllers/ConnectionStore.h"
#include "support/FakeDriver.h"
#include "support/Files.h"
#include "support/ManualQueue.h"
#include "support/SpoiltFiles.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QPointer>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Persist = ConnectionStore::Persist;

RouterConnection router(const QString& name, RouterVendor vendor = RouterVendor::blackmagicVideohub)
{
    RouterConnection router;
    router.name = name;
    router.vendor = vendor;
    return router;
}

QStringList names(const QList<RouterConnection>& connections)
{
    QStringList names;
    for (const auto& each : connections)
        names.append(each.name);
    return names;
}

class ConnectionStoreTest : public testing::Test {
protected:
    std::unique_ptr<ConnectionStore> makeStore()
    {
        const auto maker = [this](const RouterConnection& connection) {
            m_made.append(connection.name);
            return m_drivers[connection.name] = std::make_shared<FakeDriver>();
        };
        return std::make_unique<ConnectionStore>(m_queue, maker, m_folder.path());
    }

    /// A store that holds these routers and nothing else, the first one selected.
    std::unique_ptr<ConnectionStore> makeStore(const QList<RouterConnection>& routers)
    {
        writeFile(m_path, "[]");
        auto store = makeStore();
        for (const auto& each : routers)
            store->add(each, Persist::yes);
        if (!routers.isEmpty())
            store->setSelectedConnectionID(routers.front().id);
        return store;
    }

    /// The driver that was last made for the router of this name.
    [[nodiscard]] FakeDriver& driver(const QString& name) { return *m_drivers.value(name); }

    void comeUp(const QString& name)
    {
        driver(name).report(driverEvent::Connected{});
        m_queue.runReady();
    }

    [[nodiscard]] QByteArray file() const { return readFile(m_path); }
    /// What the next start would find.
    [[nodiscard]] QList<RouterConnection> reloaded() { return makeStore()->connections(); }

    TemporaryFolder m_folder;
    const QString m_path = m_folder.path(u"connections.json"_s);
    ManualQueue m_queue;
    QHash<QString, std::shared_ptr<FakeDriver>> m_drivers;
    /// Whom drivers were made for, in order.
    QStringList m_made;
    const RouterConnection m_demo = router(u"Demo"_s, RouterVendor::simulator);
    const RouterConnection m_a = router(u"a"_s);
    const RouterConnection m_b = router(u"b"_s, RouterVendor::ajaKumo);
    const RouterConnection m_c = router(u"c"_s);
};

TEST_F(ConnectionStoreTest, OffersSamplesOnAFirstRunWithoutWritingThem)
{
    const auto store = makeStore();
    EXPECT_EQ(
        names(store->connections()), (QStringList{u"Demo Router"_s, u"Studio Videohub"_s, u"Ultrix Main"_s}));
    EXPECT_EQ(store->selectedConnection(), store->connections().front());
    EXPECT_EQ(m_folder.names(), QStringList());

    store->add(m_a, Persist::yes);
    EXPECT_EQ(reloaded(), store->connections());
}

TEST_F(ConnectionStoreTest, IsWholeOrMovedAsideHoweverItsFileIsSpoilt)
{
    expectWholeOrMovedAside({u"connections.json"_s,
        R"([{"id":"7A1F0C52-0F6B-4F9E-9C55-1C0E51B1D0AA","name":"Main \"Ä\"","vendor":"lightware","host":"10.0.0.1",)"
        R"("port":6107,"simSourceCount":16,"simDestinationCount":24},{"id":"0D9B7F1C-52E8-4C0B-8E0A-57A1D2E1C3F4",)"
        R"("name":"b","vendor":"blackmagicVideohub","host":"","port":1,"simSourceCount":0,"simDestinationCount":2,)"
        R"("accentHue":0.35,"bonjourName":"Hub"}])",
        "[]", [this](const QString& folder) { ConnectionStore(m_queue, {}, folder).save(); },
        SavedFile::Missing::isFilledIn});
    writeFile(m_path, R"([{"name":"good"},{"name":5}])");
    EXPECT_EQ(printedBy([&] { EXPECT_TRUE(makeStore()->connections().isEmpty()); }),
        "ConnectionStore: unreadable connections.json moved to connections.json.corrupt — “name” is not a "
        "string\n");
}

TEST_F(ConnectionStoreTest, SelectsWhatIsAddedAndNeverWritesWhatLivesForThisRunOnly)
{
    const auto store = makeStore({m_a});
    store->add(m_demo, Persist::no);
    EXPECT_EQ(store->selectedConnection(), m_demo);
    EXPECT_EQ(reloaded(), QList{m_a});
    store->add(m_b, Persist::yes);
    EXPECT_EQ(store->selectedConnection(), m_b);
    auto edited = m_demo;
    edited.name = u"edited"_s;
    store->update(edited);
    EXPECT_EQ(store->connections(), (QList{m_a, edited, m_b}));
    EXPECT_EQ(reloaded(), (QList{m_a, m_b}));
    // An edit of a router that is not in the list changes and writes nothing.
    const auto written = file();
    store->update(m_c);
    EXPECT_EQ(file(), written);
    EXPECT_EQ(store->connections().size(), 3);
    // Only as long as it is in the list.
    store->remove(edited);
    store->add(edited, Persist::yes);
    EXPECT_EQ(reloaded(), (QList{m_a, m_b, edited}));
}

TEST_F(ConnectionStoreTest, GivesAnEditedRouterANewControllerAndTakesTheOldOneDown)
{
    const auto store = makeStore({m_a, m_b});
    store->controller(m_a).connect();
    m_queue.runReady();
    comeUp(u"a"_s);
    store->labels().set(u"Cam"_s, PortKind::source, 0, m_a.id);
    QList<QUuid> replaced;
    QObject::connect(
        store.get(), &ConnectionStore::controllerReplaced, [&](const QUuid& id) { replaced.append(id); });

    auto edited = m_a;
    edited.host = u"10.0.0.9"_s;
    store->update(edited);
    m_queue.runReady();
    EXPECT_EQ(driver(u"a"_s).calls.back(), "disconnect");
    EXPECT_EQ(replaced, QList{m_a.id});
    EXPECT_EQ(store->controller(edited).connection(), edited);
    EXPECT_EQ(store->controller(edited).status(), ConnectionStatus(Disconnected()));
    EXPECT_EQ(store->labels().byConnection().size(), 1);
    EXPECT_EQ(reloaded(), (QList{edited, m_b}));
}

TEST_F(ConnectionStoreTest, LetsAControllerFinishWhatItIsTellingWhenItIsReplaced)
{
    const auto store = makeStore({m_a});
    const QPointer controller(&store->controller(m_a));
    QObject::connect(controller, &MatrixController::changed, [&] {
        store->update(m_a);
        EXPECT_TRUE(controller);
    });
    controller->connect();
    m_queue.runReady();
    EXPECT_FALSE(controller);
}

TEST_F(ConnectionStoreTest, NobodyWhoLooksWhileARouterGoesDownBringsItsControllerBack)
{
    const auto store = makeStore({m_a, m_b});
    QPointer<MatrixController> seen;
    for (const auto& each : {m_a, m_b}) {
        auto& controller = store->controller(each);
        controller.connect();
        // As a list does that shows the status and still has the old record.
        QObject::connect(&controller, &MatrixController::changed, store.get(),
            [&, each] { seen = &store->controller(each); });
    }
    auto edited = m_a;
    edited.host = u"10.0.0.9"_s;
    store->update(edited);
    EXPECT_EQ(store->controller(edited).connection(), edited);

    seen.clear();
    store->remove(m_b);
    EXPECT_TRUE(seen);
    m_queue.runReady();
    EXPECT_FALSE(seen);
}

TEST_F(ConnectionStoreTest, MovesTheSelectionOnlyWhenTheSelectedRouterIsRemoved)
{
    struct Case {
        const char* name;
        RouterConnection selected;
        RouterConnection removed;
        RouterConnection expected;
    };
    const Case cases[] = {
        {"another one", m_b, m_a, m_b},
        {"the selected one", m_b, m_b, m_a},
        {"the selected first one", m_a, m_a, m_b},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const auto store = makeStore({m_a, m_b, m_c});
        store->setSelectedConnectionID(c.selected.id);
        store->remove(c.removed);
        EXPECT_EQ(store->selectedConnectionID(), c.expected.id);
    }
    const auto store = makeStore({m_a});
    store->remove(store->connections().front());
    EXPECT_EQ(store->selectedConnectionID(), std::nullopt);
    EXPECT_EQ(file(), "[]");
}

TEST_F(ConnectionStoreTest, RemovesARouterWithAllThatHangsOnItAndNothingOfTheOthers)
{
    const auto store = makeStore({m_a, m_b});
    for (const auto& id : {m_a.id, m_b.id}) {
        SubPanel panel;
        store->labels().set(u"Cam"_s, PortKind::source, 0, id);
        store->salvoStore().add(Salvo(), id);
        store->panelStore().upsert(panel, id);
        store->panelStore().setActivePanelID(panel.id, id);
    }
    store->controller(m_a).connect();
    m_queue.runReady();
    store->remove(m_a);
    m_queue.runReady();

    EXPECT_EQ(driver(u"a"_s).calls.back(), "disconnect");
    const auto next = makeStore();
    EXPECT_EQ(next->connections(), QList{m_b});
    EXPECT_EQ(next->labels().byConnection().keys(), QStringList(idText(m_b.id)));
    EXPECT_EQ(next->salvoStore().byConnection().keys(), QStringList(idText(m_b.id)));
    EXPECT_TRUE(next->panelStore().panels(m_a.id).isEmpty());
    EXPECT_TRUE(next->panelStore().activePanelID(m_b.id));
}

TEST_F(ConnectionStoreTest, SaysOnceWhatCouldNotBeSavedUntilItIs)
{
    const auto store = makeStore({m_a});
    const auto labelsPath = m_folder.path(u"labels.json"_s);
    QStringList problems;
    QObject::connect(
        store.get(), &ConnectionStore::saveProblemChanged, [&] { problems.append(store->saveProblem()); });
    const auto shown = [&] { return std::exchange(problems, {}); };
    const auto setLabel = [&] { store->labels().set(u"Cam"_s, PortKind::source, 0, m_a.id); };
    const auto connections = u"Not saved: connections.json (Is a directory)"_s;
    ASSERT_TRUE(QFile::remove(m_path) && QDir().mkdir(m_path) && QDir().mkdir(labelsPath));
    EXPECT_EQ(
        printedBy([&] { store->add(m_b, Persist::yes); }), "ConnectionStore: save failed — Is a directory\n");
    EXPECT_EQ(store->connections(), (QList{m_a, m_b}));
    EXPECT_EQ(shown(), QStringList(connections));
    store->save();
    EXPECT_EQ(shown(), QStringList());
    store->dismissSaveProblem();
    store->dismissSaveProblem();
    store->save();
    EXPECT_EQ(shown(), QStringList(u""_s));
    setLabel();
    EXPECT_EQ(shown(), QStringList(connections + u", labels.json (Is a directory)"_s));
    QDir().rmdir(labelsPath);
    setLabel();
    QDir().rmdir(m_path);
    store->save();
    EXPECT_EQ(shown(), (QStringList{connections, u""_s}));
    ASSERT_TRUE(QFile::remove(m_path) && QDir().mkdir(m_path));
    store->save();
    EXPECT_EQ(shown(), QStringList(connections));
    for (const auto* name : {"salvos.json", "panels.json"})
        QDir().mkdir(m_folder.path(QString::fromLatin1(name)));
    store->dismissSaveProblem();
    store->remove(m_b);
    EXPECT_TRUE(shown().last().endsWith(u", panels.json (Is a directory), salvos.json (Is a directory)"_s));
}

TEST_F(ConnectionStoreTest, TellsOfRealChangesOnly)
{
    const auto store = makeStore({m_a, m_b});
    int lists = 0;
    int selections = 0;
    QObject::connect(store.get(), &ConnectionStore::connectionsChanged, [&] { ++lists; });
    QObject::connect(store.get(), &ConnectionStore::selectedConnectionIDChanged, [&] { ++selections; });
    store->setSelectedConnectionID(m_a.id);
    store->setConnections({m_a, m_b});
    EXPECT_EQ(lists + selections, 0);
    store->setSelectedConnectionID(m_b.id);
    store->remove(m_a);
    EXPECT_EQ(lists, 1);
    EXPECT_EQ(selections, 1);
    store->remove(m_b);
    EXPECT_EQ(selections, 2);
}

class LaunchTest : public ConnectionStoreTest {
protected:
    void TearDown() override
    {
        // The search ends with the store, at its next look.
        m_store.reset();
        m_queue.advance(200ms);
        EXPECT_EQ(m_queue.waitingCount(), 0U);
    }

    void launch()
    {
        m_store->autoConnectOnLaunch();
        m_queue.runReady();
    }

    [[nodiscard]] QString selected() const
    {
        return m_store->selectedConnection().value_or(RouterConnection()).name;
    }

    std::unique_ptr<ConnectionStore> m_store = makeStore({m_demo, m_a, m_b, m_c});
};

TEST_F(LaunchTest, ConnectsEveryRouterThatIsDownAndNotASimulatorAndOnlyOnce)
{
    m_store->controller(m_b).connect();
    launch();
    EXPECT_EQ(m_made, (QStringList{u"b"_s, u"a"_s, u"c"_s}));
    for (const auto& driver : std::as_const(m_drivers))
        EXPECT_EQ(driver->calls, std::vector<std::string>{"connect"});
    m_store->controller(m_c).disconnect();
    launch();
    EXPECT_EQ(m_made.size(), 3);
}

TEST_F(LaunchTest, SelectsTheFirstInTheListThatIsUpAtALook)
{
    launch();
    comeUp(u"c"_s);
    comeUp(u"b"_s);
    m_queue.advance(199ms);
    EXPECT_EQ(selected(), u"Demo"_s);
    m_queue.advance(1ms);
    EXPECT_EQ(selected(), u"b"_s);
    // The search is over: what comes up later changes nothing.
    comeUp(u"a"_s);
    m_queue.advance(1min);
    EXPECT_EQ(selected(), u"b"_s);
}

TEST_F(LaunchTest, GivesUpAfterFifteenSeconds)
{
    launch();
    m_queue.advance(14'999ms);
    EXPECT_EQ(selected(), u"Demo"_s);
    comeUp(u"c"_s);
    m_queue.advance(1ms);
    EXPECT_EQ(selected(), u"c"_s);

    m_store = makeStore({m_demo, m_a});
    launch();
    m_queue.advance(15s);
    comeUp(u"a"_s);
    m_queue.advance(1min);
    EXPECT_EQ(selected(), u"Demo"_s);
}

TEST_F(LaunchTest, LeavesTheSelectionAloneAsSoonAsTheOperatorActs)
{
    struct Case {
        const char* name;
        std::function<void(ConnectionStore&)> action;
        QString selected;
    };
    const Case cases[] = {
        {"selects", [this](auto& store) { store.setSelectedConnectionID(m_c.id); }, u"c"_s},
        {"edits", [this](auto& store) { store.update(m_c); }, u"Demo"_s},
        {"removes", [this](auto& store) { store.remove(m_c); }, u"Demo"_s},
        {"only rearranges",
            [this](auto& store) {
                store.setConnections({m_demo, m_b, m_c});
            },
            u"b"_s},
    };
    for (const auto& c : cases) {
        m_store = makeStore({m_demo, m_a, m_b, m_c});
        launch();
        c.action(*m_store);
        comeUp(u"a"_s);
        comeUp(u"b"_s);
        m_queue.advance(1min);
        EXPECT_EQ(selected(), c.selected) << c.name;
    }
}

} // namespace

} // namespace corvane
