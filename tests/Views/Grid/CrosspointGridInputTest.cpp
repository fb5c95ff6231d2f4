#include "GridViewTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using Calls = std::vector<std::string>;
constexpr int header = GridPlace::header;

using GridInputTest = GridViewTest;

TEST_F(GridInputTest, RoutesByAClickAndNotByADragOffTheCell)
{
    show(matrix(8, 8));
    click(centre({1, 3}));
    EXPECT_EQ(told(), Calls{"takeAll 0:1<3"});
    mouse(QEvent::MouseButtonPress, centre({1, 4}));
    mouse(QEvent::MouseButtonRelease, centre({1, 5}));
    EXPECT_EQ(told(), Calls{});
}

TEST_F(GridInputTest, TellsADoubleClickFromTwoClicks)
{
    show(matrix(64, 64));
    controller->setTakeMode(TakeMode::confirm);
    doubleClick(centre({2, header}));
    EXPECT_EQ(controller->renameTarget(), (PortRef{PortKind::destination, 2}));
    EXPECT_EQ(controller->pendingDestination(), std::nullopt);

    controller->setRenameTarget(std::nullopt);
    const QPointF point = centre({2, header});
    click(point);
    view.scrollTo({0, view.layout().stride()});
    mouse(QEvent::MouseButtonDblClick, point);
    mouse(QEvent::MouseButtonRelease, point);
    EXPECT_EQ(controller->renameTarget(), std::nullopt) << "the second click was on another header";
    EXPECT_EQ(controller->pendingDestination(), 3);

    controller->setTakeMode(TakeMode::immediate);
    doubleClick(centre({1, 3}));
    EXPECT_EQ(told(), (Calls{"takeAll 0:1<3", "takeAll 0:1<3"})) << "on a cell, two clicks are two";
}

TEST_F(GridInputTest, ActsOnWhatIsPressedWithoutScrolling)
{
    show(matrix(64, 64));
    view.setControlBarClearance(60);
    view.scrollTo({20, 20});
    const GridLayout& layout = view.layout();
    const int lastRow = layout.rowsInView().end - 1;
    const int lastColumn = layout.columnsInView().end - 1;
    const struct {
        const char* name;
        GridPlace place;
    } cases[] = {
        {"a cell half beneath the row headers", {2, 0}},
        {"a cell half beneath the column headers", {0, 2}},
        {"a cell half beyond the right edge", {2, lastColumn}},
        {"a cell beneath the bar", {lastRow, 2}},
        {"a row header half beneath the corner", {0, header}},
        {"a row header beneath the bar", {lastRow, header}},
        {"a column header half beneath the corner", {header, 0}},
        {"a column header half beyond the right edge", {header, lastColumn}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        controller->setRenameTarget(std::nullopt);
        ASSERT_NE(layout.scrollShowing(c.place), layout.scroll) << "wholly in view";
        doubleClick((layout.rectOf(c.place) & layout.areaOf(c.place)).center());
        EXPECT_EQ(layout.scroll, QPointF(20, 20));
        EXPECT_EQ(view.focusPlace(), c.place);
        const auto route = "takeAll 0:" + std::to_string(c.place.row) + "<" + std::to_string(c.place.column);
        EXPECT_EQ(told(), c.place.isCell() ? (Calls{route, route}) : Calls{});
        const auto kind = c.place.isRowHeader() ? PortKind::destination : PortKind::source;
        const std::optional renamed = PortRef{kind, std::max(c.place.row, c.place.column)};
        EXPECT_EQ(controller->renameTarget(), c.place.isCell() ? std::nullopt : renamed);
    }
}

TEST_F(GridInputTest, FollowsTheKeyboard)
{
    show(matrix(64, 64));
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(view.focusPlace(), (GridPlace{63, 63}));
    EXPECT_EQ(view.layout().placeAt(centre({63, 63})), (GridPlace{63, 63}));
    press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(view.layout().scroll, QPointF(0, 0));
    view.scrollTo({490, 490});
    press(Qt::Key_Space);
    EXPECT_EQ(told(), Calls{"takeAll 0:0<0"});
    EXPECT_EQ(view.layout().scroll, QPointF(0, 0)) << "what a key does is seen";
    for (const auto reason : {Qt::TabFocusReason, Qt::MouseFocusReason}) {
        window.contentItem()->forceActiveFocus();
        view.scrollTo({490, 490});
        view.forceActiveFocus(reason);
        EXPECT_EQ(view.layout().scroll.isNull(), reason == Qt::TabFocusReason);
    }
}

TEST_F(GridInputTest, ForgetsAPressWhenThePortsChangeUnderIt)
{
    show(matrix(8, 8));
    mouse(QEvent::MouseButtonPress, centre({1, 3}));
    report(driverEvent::StateReplaced{matrix(7, 7)});
    mouse(QEvent::MouseButtonRelease, centre({1, 3}));
    EXPECT_EQ(told(), Calls{});
}

TEST_F(GridInputTest, DoesByKeyWhatTheMouseDoes)
{
    const struct {
        const char* name;
        GridPlace place;
        int key;
        Calls told;
        std::optional<PortRef> renames;
    } cases[] = {
        {"route", {1, 3}, Qt::Key_Space, {"takeAll 0:1<3"}, {}},
        {"lock by the header", {1, header}, Qt::Key_L, {"setLock 1 0 true"}, {}},
        {"unlock by a cell", {1, 3}, Qt::Key_L, {"setLock 1 0 false"}, {}},
        {"no lock for a source", {header, 3}, Qt::Key_L, {}, {}},
        {"rename a destination", {1, header}, Qt::Key_F2, {}, PortRef{PortKind::destination, 1}},
        {"rename a source", {header, 3}, Qt::Key_F2, {}, PortRef{PortKind::source, 3}},
        {"rename a cell's destination", {4, 3}, Qt::Key_F2, {}, PortRef{PortKind::destination, 4}},
        {"a source's header alone", {header, 3}, Qt::Key_Space, {}, {}},
    };
    show(matrix(8, 8));
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        controller->setRenameTarget(std::nullopt);
        view.setFocusPlace(c.place);
        EXPECT_TRUE(press(c.key));
        EXPECT_EQ(told(), c.told);
        EXPECT_EQ(controller->renameTarget(), c.renames);
    }
}

TEST_F(GridInputTest, LeavesOtherKeysToOthers)
{
    show(matrix(8, 8));
    EXPECT_FALSE(press(Qt::Key_Escape));
    EXPECT_FALSE(press(Qt::Key_Tab));
    EXPECT_FALSE(press(Qt::Key_L, Qt::ControlModifier));
    EXPECT_FALSE(press(Qt::Key_F10));
    EXPECT_FALSE(press(Qt::Key_Return)) << "the bar takes";
    QKeyEvent heldDown(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(&view, &heldDown);
    EXPECT_EQ(told(), Calls{});
    report(driverEvent::StateReplaced{matrix(0, 0)});
    EXPECT_FALSE(press(Qt::Key_Down)) << "nowhere to be";
}

TEST_F(GridInputTest, KeepsTheKeyboardSomewhereWhenItsPlaceIsGone)
{
    show(matrix(8, 8));
    view.setFocusPlace({7, 7});
    const struct {
        qint64 sources;
        qint64 destinations;
        std::optional<GridPlace> focus;
    } cases[] = {{8, 9, GridPlace{7, 7}}, {3, 3, GridPlace{0, 0}}, {0, 3, GridPlace{0, header}},
        {3, 0, GridPlace{header, 0}}, {0, 0, std::nullopt}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.sources);
        report(driverEvent::StateReplaced{matrix(c.sources, c.destinations)});
        EXPECT_EQ(view.focusPlace(), c.focus);
    }
}

TEST_F(GridInputTest, AsksForAMenuAndDoesWhatItSaid)
{
    Calls offered;
    QObject::connect(
        &view, &CrosspointMatrixView::menuRequested, &view, [&](QPointF, const QVariantList& menu) {
            for (const QVariant& entry : menu)
                offered.push_back(entry.value<MenuAction>().text.toStdString());
        });
    const auto menu = [&] { return std::exchange(offered, {}); };
    const Calls ofADestination{"Rename Destination…", "Lock"};
    show(matrix(8, 8));
    mouse(QEvent::MouseButtonPress, centre({2, header}), Qt::RightButton);
    EXPECT_EQ(menu(), ofADestination);
    press(Qt::Key_Menu);
    EXPECT_EQ(menu(), ofADestination) << "the keyboard is where the mouse was";
    press(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(menu(), ofADestination);
    for (const auto& text : {u"Lock"_s, u"Lock"_s, u"nothing"_s})
        view.chooseInMenu(text);
    EXPECT_EQ(told(), Calls{"setLock 2 0 true"});

    mouse(QEvent::MouseButtonPress, centre({7, header}), Qt::RightButton);
    report(driverEvent::LockChanged{.destination = 7, .locked = true});
    view.chooseInMenu(u"Lock"_s);
    EXPECT_EQ(told(), Calls{}) << "it said \"Lock\", and someone else has locked it meanwhile";
    mouse(QEvent::MouseButtonPress, centre({7, header}), Qt::RightButton);
    report(driverEvent::StateReplaced{matrix(3, 3)});
    view.chooseInMenu(u"Lock"_s);
    EXPECT_EQ(told(), Calls{}) << "its header is gone";
    offered.clear();
    mouse(QEvent::MouseButtonPress, centre({2, 2}), Qt::RightButton);
    EXPECT_EQ(menu(), Calls{}) << "cells have none";
}

TEST_F(GridInputTest, ScrollsByTheWheelAlongTheAxisThatShiftSays)
{
    const struct {
        const char* name;
        QPoint pixels;
        QPoint angle;
        Qt::KeyboardModifiers modifiers;
        QPointF scroll;
    } cases[] = {
        {"touch pad", {-10, -30}, {-80, -240}, {}, {10, 30}},
        {"tilted wheel", {}, {-120, 0}, {}, {72, 0}},
        {"wheel", {}, {0, -120}, {}, {0, 72}},
        {"wheel with Shift", {}, {0, -120}, Qt::ShiftModifier, {72, 0}},
        {"upwards from the top", {}, {0, 120}, {}, {0, 0}},
    };
    show(matrix(64, 64));
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        view.scrollTo({});
        QWheelEvent event(
            {300, 300}, {300, 300}, c.pixels, c.angle, Qt::NoButton, c.modifiers, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&view, &event);
        EXPECT_EQ(view.layout().scroll, c.scroll);
    }
}

TEST_F(GridInputTest, ScrollsByAFingerAndRoutesByATap)
{
    const QPointingDevice screen(u"screen"_s, 1, QInputDevice::DeviceType::TouchScreen,
        QPointingDevice::PointerType::Finger, QInputDevice::Capability::Position, 1, 0);
    const auto touch = [&](QEvent::Type type, QPointF point) {
        QMouseEvent event(type, point, point, view.mapToGlobal(point), Qt::LeftButton, Qt::LeftButton,
            Qt::NoModifier, &screen);
        QCoreApplication::sendEvent(&view, &event);
    };
    show(matrix(64, 64));
    touch(QEvent::MouseButtonPress, {400, 400});
    touch(QEvent::MouseMove, {380, 300});
    EXPECT_EQ(view.layout().scroll, QPointF(20, 100));
    touch(QEvent::MouseMove, {400, 400});
    touch(QEvent::MouseButtonRelease, {400, 400});
    EXPECT_EQ(view.layout().scroll, QPointF(0, 0));
    EXPECT_EQ(told(), Calls{}) << "a drag that came back is no tap";

    touch(QEvent::MouseButtonPress, centre({1, 3}));
    touch(QEvent::MouseMove, centre({1, 3}) + QPointF(2, 2));
    touch(QEvent::MouseButtonRelease, centre({1, 3}));
    EXPECT_EQ(told(), Calls{"takeAll 0:1<3"}) << "a finger is never quite still";
}

TEST_F(GridInputTest, HelpsWhereThePointerRestsOrElseWhereTheKeyboardIs)
{
    show(matrix(64, 64));
    view.setFocusPlace({header, 0});
    EXPECT_EQ(view.toolTip(), QString()) << "nobody used the keyboard yet";
    press(Qt::Key_Right);
    EXPECT_EQ(view.toolTip(), model.signalHelp(1));
    EXPECT_EQ(view.toolTipArea(), view.layout().rectOf({header, 1}));
    view.scrollTo({490, 0});
    EXPECT_EQ(view.toolTip(), QString()) << "scrolled out of view";
    hover(centre({2, header}));
    EXPECT_EQ(view.toolTip(), u"Double-click to rename"_s);
    EXPECT_EQ(view.toolTipArea(), view.layout().rectOf({2, header}));
    hover(centre({2, 12}));
    EXPECT_EQ(view.toolTip(), QString());
}

} // namespace

} // namespace corvane
