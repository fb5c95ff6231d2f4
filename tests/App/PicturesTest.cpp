#include "Picture.h"
#include "WindowTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

constexpr QSize smallest{860, 560};

/// Each screen in the state that tells most of it. Those of the guide are kept in docs/pictures.
class PicturesTest : public WindowTest {
protected:
    [[nodiscard]] MatrixController& demo() const { return controller(u"Demo Router"_s); }

    /// One of each kind of crosspoint: live, staged, locked.
    void workOnTheGrid()
    {
        demo().take(2, 0);
        demo().take(0, 2);
        demo().take(0, 4);
        demo().toggleLock(6);
        demo().setTakeMode(TakeMode::confirm);
        demo().selectDestination(4);
        demo().chooseSource(8);
        queue.advance(std::chrono::seconds(1));
    }

    void open(const QString& name) { store->setSelectedConnectionID(router(name).id); }

    [[nodiscard]] QImage screen()
    {
        settle();
        return window->grabWindow();
    }
};

TEST_F(PicturesTest, Grid)
{
    workOnTheGrid();
    EXPECT_TRUE(looksAs(u"docs/pictures/grid"_s, screen()));
}

TEST_F(PicturesTest, GridInTheDark)
{
    wear(Appearance::dark);
    workOnTheGrid();
    EXPECT_TRUE(looksAs(u"tests/Pictures/grid-dark"_s, screen()));
}

TEST_F(PicturesTest, List)
{
    demo().setViewMode(RouteViewMode::list);
    workOnTheGrid();
    EXPECT_TRUE(looksAs(u"docs/pictures/list"_s, screen()));
}

TEST_F(PicturesTest, ListFromTheSourcesInTheDark)
{
    window->resize(smallest);
    wear(Appearance::dark);
    demo().setViewMode(RouteViewMode::list);
    demo().setDirection(RoutingDirection::sourceLed);
    demo().toggleLock(6);
    demo().focusSource(2);
    EXPECT_TRUE(looksAs(u"tests/Pictures/list-from-sources"_s, screen()));
}

TEST_F(PicturesTest, SmallestWindow)
{
    window->resize(smallest);
    demo().setPrimaryLevel(1);
    demo().setBreakawayLevels({1});
    workOnTheGrid();
    const auto whole = screen();
    EXPECT_TRUE(looksAs(u"tests/Pictures/smallest-window"_s, whole));
    EXPECT_TRUE(looksAs(u"docs/pictures/control-bar"_s, whole.copy(332, 456, 476, 104)));
}

TEST_F(PicturesTest, ABarWithNothingToTake)
{
    window->resize(smallest);
    demo().setTakeMode(TakeMode::confirm);
    EXPECT_TRUE(looksAs(u"tests/Pictures/bar-idle"_s, screen().copy(332, 456, 476, 104)));
    wear(Appearance::dark);
    EXPECT_TRUE(looksAs(u"tests/Pictures/bar-idle-dark"_s, screen().copy(332, 456, 476, 104)));
}

TEST_F(PicturesTest, ErrorBanner)
{
    window->resize(smallest);
    wear(Appearance::dark);
    demo().toggleLock(7);
    demo().take(0, 7);
    EXPECT_TRUE(looksAs(u"tests/Pictures/error-banner"_s, screen()));
}

TEST_F(PicturesTest, FailedConnection)
{
    window->resize(smallest);
    open(u"MX2 Conference"_s);
    EXPECT_TRUE(looksAs(u"docs/pictures/failed-connection"_s, screen()));
}

TEST_F(PicturesTest, PanelForAnotherRouter)
{
    window->resize(smallest);
    wear(Appearance::dark);
    const SubPanel panel{QUuid::createUuid(), u"Gallery"_s, {40, 41}, {40, 41}};
    demo().savePanel(panel);
    demo().setActivePanelID(panel.id);
    EXPECT_TRUE(looksAs(u"tests/Pictures/panel-mismatch"_s, screen()));
}

TEST_F(PicturesTest, DeleteDialog)
{
    window->resize(smallest);
    const auto studio = router(u"Studio Videohub"_s);
    store->panelStore().upsert({QUuid::createUuid(), u"Gallery"_s, {0}, {0}}, studio.id);
    act(find(QAccessible::ListItem, studio.name), u"Delete…"_s);
    EXPECT_TRUE(looksAs(u"docs/pictures/delete-router"_s, screen()));
}

TEST_F(PicturesTest, SidebarMenu)
{
    window->resize(smallest);
    wear(Appearance::dark);
    auto routers = store->connections();
    routers[2].name = u"Ultrix in the machine room on the third floor"_s;
    routers[2].host = u"router.machine-room.third-floor.example"_s;
    store->setConnections(routers);
    settle();
    click(Qt::RightButton, *find(QAccessible::ListItem, u"KUMO Stage"_s));
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_TRUE(looksAs(u"tests/Pictures/sidebar-menu"_s, screen()));
}

/// A panel with salvos of its own, one of them in force, one in the way of a lock, and one of the whole
/// router.
void saveSalvos(MatrixController& router)
{
    router.saveSalvo(u"House Default"_s, {});
    const SubPanel studio{
        QUuid::createUuid(), u"Studio A"_s, {0, 1, 2, 3, 5, 7, 8, 9}, {0, 1, 2, 3, 4, 6, 8, 9}};
    router.savePanel(studio);
    router.setActivePanelID(studio.id);
    router.saveSalvo(u"Evening News"_s, studio.id);
    router.take(8, 0);
    router.take(9, 3);
    router.saveSalvo(u"Weather"_s, studio.id);
    router.take(2, 6);
    router.toggleLock(6);
    router.saveSalvo(u"Morning"_s, studio.id);
}

TEST_F(PicturesTest, Salvos)
{
    saveSalvos(demo());
    const auto keep = [this](const QString& what, Appearance appearance, QSize size) {
        queue.advance(std::chrono::milliseconds(20));
        const bool isOfGuide =
            appearance == Appearance::light && size != smallest && what != u"salvo-sheet"_s;
        const auto name = isOfGuide
            ? u"docs/pictures/"_s + what
            : u"tests/Pictures/%1%2%3"_s.arg(what, size == smallest ? u"-small"_s : QString(),
                appearance == Appearance::dark ? u"-dark"_s : QString());
        EXPECT_TRUE(looksAs(name, screen()));
    };
    const auto whole = window->size();
    for (const auto appearance : {Appearance::light, Appearance::dark}) {
        for (const auto size : {whole, smallest}) {
            wear(appearance);
            window->resize(size);
            keep(u"salvo-strip"_s, appearance, size);
            act(find(QAccessible::Button, u"Salvos"_s), QAccessibleActionInterface::pressAction());
            keep(u"salvo-sheet"_s, appearance, size);
            press(Qt::Key_Space);
            keep(u"salvo-preview"_s, appearance, size);
            act(find(QAccessible::Button, u"Fire Evening News"_s), QAccessibleActionInterface::pressAction());
            keep(u"salvo-fire"_s, appearance, size);
            press(Qt::Key_Escape);
            press(Qt::Key_Escape);
        }
    }
}

TEST_F(PicturesTest, Panels)
{
    const auto press = [this](QAccessible::Role role, const QString& name) {
        act(find(role, name), QAccessibleActionInterface::pressAction());
    };
    const auto keep = [this](const QString& what, Appearance appearance, QSize size) {
        queue.advance(std::chrono::seconds(1));
        const bool isOfGuide = appearance == Appearance::light && size != smallest;
        EXPECT_TRUE(looksAs(isOfGuide
                ? u"docs/pictures/"_s + what
                : u"tests/Pictures/%1%2%3"_s.arg(what, size == smallest ? u"-small"_s : QString(),
                    appearance == Appearance::dark ? u"-dark"_s : QString()),
            screen()));
    };
    const auto whole = window->size();
    press(QAccessible::Button, u"Full Router"_s);
    press(QAccessible::MenuItem, u"New Panel…"_s);
    press(QAccessible::Button, u"Cancel"_s);
    const SubPanel studio{QUuid::createUuid(), u"Studio A"_s, {0, 1, 2, 3, 8, 9, 39}, {1, 4}};
    for (const auto& panel : {studio, SubPanel{QUuid::createUuid(), u"Gallery"_s, {0, 1}, {0, 1}},
             SubPanel{QUuid::createUuid(), u"A very long name for the panel of the outside broadcast truck"_s,
                 {0, 1}, {0, 1}},
             SubPanel{QUuid::createUuid(), u"Master Control"_s, {3}, {3}}})
        demo().savePanel(panel);
    demo().setActivePanelID(studio.id);
    for (const auto appearance : {Appearance::light, Appearance::dark}) {
        for (const auto size : {whole, smallest}) {
            wear(appearance);
            window->resize(size);
            keep(u"panel-tabs"_s, appearance, size);
            press(QAccessible::Button, u"Studio A"_s);
            keep(u"panel-menu"_s, appearance, size);
            press(QAccessible::MenuItem, u"Edit Panels…"_s);
            keep(u"panel-manager"_s, appearance, size);
            press(QAccessible::Button, u"Edit…"_s);
            keep(u"panel-editor"_s, appearance, size);
            this->press(Qt::Key_Escape);
            this->press(Qt::Key_Escape);
        }
    }
}

TEST_F(PicturesTest, NoRouters)
{
    window->resize(smallest);
    store->setConnections({});
    store->setSelectedConnectionID(std::nullopt);
    EXPECT_TRUE(looksAs(u"tests/Pictures/no-routers"_s, screen()));
}

TEST_F(PicturesTest, Rename)
{
    window->resize(smallest);
    demo().beginRename(PortKind::source, 8);
    EXPECT_TRUE(looksAs(u"docs/pictures/rename"_s, screen()));
}

} // namespace

} // namespace corvane
