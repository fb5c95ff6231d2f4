#include "GridViewTest.h"

namespace corvane {

namespace {

using Calls = std::vector<std::string>;
constexpr int header = GridPlace::header;
/// Longer than anything moves.
constexpr double untilAllRests = 10;

QRgb shownAt(const QImage& frame, QPointF point)
{
    return frame.pixel((point * frame.devicePixelRatio()).toPoint());
}

TEST_F(GridViewTest, ShowsAConnectionWhereItIs)
{
    show(matrix(8, 8));
    const QPointF besideTheDot = centre({2, 2}) + QPointF(0, 18);
    EXPECT_EQ(shownAt(frame(), centre({2, 2})), QColor(Qt::white).rgb());
    const QRgb connected = shownAt(frame(), besideTheDot);
    EXPECT_GT(qBlue(connected), qRed(connected) + 80);
    EXPECT_NE(shownAt(frame(), centre({2, 3})), QColor(Qt::white).rgb());
}

TEST_F(GridViewTest, MovesAConnectionByASpring)
{
    show(matrix(8, 8));
    report(driverEvent::RouteChanged{0, 2, 5});
    const QRgb before = shownAt(frame(), centre({2, 5}));
    view.advance(0.05);
    const QRgb under = shownAt(frame(), centre({2, 5}));
    view.advance(untilAllRests);
    EXPECT_NE(under, before);
    EXPECT_NE(under, shownAt(frame(), centre({2, 5}))) << "on its way";
    EXPECT_EQ(shownAt(frame(), centre({2, 5})), QColor(Qt::white).rgb());
    EXPECT_NE(shownAt(frame(), centre({2, 2})), QColor(Qt::white).rgb());
}

TEST_F(GridViewTest, PaintsOneRowForOneTally)
{
    show(matrix(64, 64));
    report(driverEvent::RouteChanged{0, 2, 40});
    EXPECT_EQ(paintedInFrame(), 1) << "the header, which names the source";
    view.advance(untilAllRests);
    EXPECT_LE(paintedInFrame(), 2) << "the strip that was left; the one reached is out of view";
}

TEST_F(GridViewTest, PaintsARowOnceForManyTalliesInOneFrame)
{
    show(matrix(64, 64));
    for (qint64 source = 10; source < 60; ++source)
        report(driverEvent::RouteChanged{0, 2, source});
    EXPECT_EQ(paintedInFrame(), 1);
}

TEST_F(GridViewTest, PaintsNothingForATallyOutOfView)
{
    show(matrix(64, 64, 2));
    const struct {
        const char* name;
        RouterDriverEvent event;
    } cases[] = {
        {"a row below", driverEvent::RouteChanged{0, 60, 0}},
        {"another level", driverEvent::RouteChanged{1, 2, 0}},
        {"the same again", driverEvent::RouteChanged{0, 2, 2}},
        {"a column to the right", driverEvent::InputStatusChanged{60, InputSignalStatus{true, {}}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        report(c.event);
        EXPECT_EQ(paintedInFrame(), 0);
    }
}

TEST_F(GridViewTest, PaintsWhatIsInViewAndNotWhatExists)
{
    show(matrix(64, 64));
    const qint64 small = view.paintedCount();
    CrosspointMatrixView large;
    large.setSize(view.size());
    large.setParentItem(window.contentItem());
    report(driverEvent::StateReplaced{matrix(1024, 1024)});
    large.setController(controller.get());
    frame();
    EXPECT_LE(large.paintedCount(), small);
}

TEST_F(GridViewTest, ReusesPicturesWhileScrolling)
{
    show(matrix(64, 64));
    view.scrollTo({0, 20});
    EXPECT_LE(paintedInFrame(), 2) << "at most one row has come into view";
    view.scrollTo({0, 0});
    EXPECT_EQ(paintedInFrame(), 0) << "what was there before is still known";
}

TEST_F(GridViewTest, KeepsHeadersInViewWhileScrolling)
{
    show(matrix(64, 64));
    view.scrollTo({490, 490});
    EXPECT_EQ(view.layout().placeAt({10, 200})->column, header);
    EXPECT_EQ(view.layout().placeAt({200, 10})->row, header);
    // Row and column 10 connect: their dot shows in the field's corner, and nothing of it above the headers.
    EXPECT_EQ(shownAt(frame(), centre({10, 10})), QColor(Qt::white).rgb());
}

TEST_F(GridViewTest, RoutesByAClickAndNotByADragOffTheCell)
{
    show(matrix(8, 8));
    click({1, 3});
    EXPECT_EQ(told(), Calls{"takeAll 0:1<3"});
    mouse(QEvent::MouseButtonPress, centre({1, 4}));
    mouse(QEvent::MouseButtonRelease, centre({1, 5}));
    EXPECT_EQ(told(), Calls{});
}

TEST_F(GridViewTest, CountsTwoQuickClicksOnACellAsTwo)
{
    show(matrix(8, 8));
    doubleClick({1, 3});
    EXPECT_EQ(told(), (Calls{"takeAll 0:1<3", "takeAll 0:1<3"}));
}

TEST_F(GridViewTest, RenamesByADoubleClickOnAHeaderWithoutStaging)
{
    show(matrix(8, 8));
    controller->setTakeMode(TakeMode::confirm);
    doubleClick({2, header});
    EXPECT_EQ(controller->renameTarget(), (PortRef{PortKind::destination, 2}));
    EXPECT_EQ(controller->pendingDestination(), std::nullopt);
}

TEST_F(GridViewTest, ForgetsAPressWhenThePortsChangeUnderIt)
{
    show(matrix(8, 8));
    mouse(QEvent::MouseButtonPress, centre({1, 3}));
    report(driverEvent::StateReplaced{matrix(7, 7)});
    mouse(QEvent::MouseButtonRelease, centre({1, 3}));
    EXPECT_EQ(told(), Calls{});
}

TEST_F(GridViewTest, DoesByKeyWhatTheMouseDoes)
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

TEST_F(GridViewTest, StagesBySpaceAndTakesByReturn)
{
    show(matrix(8, 8));
    controller->setTakeMode(TakeMode::confirm);
    view.setFocusPlace({1, 3});
    press(Qt::Key_Space);
    EXPECT_EQ(told(), Calls{});
    press(Qt::Key_Return);
    EXPECT_EQ(told(), Calls{"takeAll 0:1<3"});
}

TEST_F(GridViewTest, LeavesOtherKeysToOthers)
{
    show(matrix(8, 8));
    EXPECT_FALSE(press(Qt::Key_Escape));
    EXPECT_FALSE(press(Qt::Key_Tab));
    EXPECT_FALSE(press(Qt::Key_L, Qt::ControlModifier));
    EXPECT_FALSE(press(Qt::Key_F10));
    EXPECT_EQ(told(), Calls{});
    report(driverEvent::StateReplaced{matrix(0, 0)});
    EXPECT_FALSE(press(Qt::Key_Down)) << "nowhere to be";
}

TEST_F(GridViewTest, ScrollsToWhereTheKeyboardGoes)
{
    show(matrix(64, 64));
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(view.focusPlace(), (GridPlace{63, 63}));
    EXPECT_EQ(view.layout().placeAt(centre({63, 63})), (GridPlace{63, 63}));
    press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(view.layout().scroll, QPointF(0, 0));
}

TEST_F(GridViewTest, StartsAtTheFirstCellWhenThePlaceOfTheKeyboardIsGone)
{
    show(matrix(8, 8));
    view.setFocusPlace({7, 7});
    report(driverEvent::StateReplaced{matrix(3, 3)});
    EXPECT_EQ(view.focusPlace(), (GridPlace{0, 0}));
}

class Menus {
public:
    explicit Menus(const CrosspointMatrixView& view)
    {
        QObject::connect(&view, &CrosspointMatrixView::menuRequested, &m_context,
            [this](QPointF, const QVariantList& entries) {
                for (const QVariant& entry : entries)
                    m_texts.push_back(entry.toMap().value(QStringLiteral("text")).toString().toStdString());
            });
    }
    [[nodiscard]] Calls texts() { return std::exchange(m_texts, {}); }

private:
    QObject m_context;
    Calls m_texts;
};

TEST_F(GridViewTest, AsksForAMenuByRightClickAndByKey)
{
    show(matrix(8, 8));
    Menus menus(view);
    const Calls ofADestination{"Rename Destination…", "Lock"};
    mouse(QEvent::MouseButtonPress, centre({2, header}), Qt::RightButton);
    EXPECT_EQ(menus.texts(), ofADestination);
    press(Qt::Key_Menu);
    EXPECT_EQ(menus.texts(), ofADestination) << "the keyboard is where the mouse was";
    press(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(menus.texts(), ofADestination);
    view.performMenuEntry(1);
    EXPECT_EQ(told(), Calls{"setLock 2 0 true"});
    view.performMenuEntry(7);
    view.performMenuEntry(-1);
    mouse(QEvent::MouseButtonPress, centre({2, 2}), Qt::RightButton);
    EXPECT_EQ(menus.texts(), Calls{}) << "cells have none";
}

TEST_F(GridViewTest, DropsAMenuWhoseHeaderIsGone)
{
    show(matrix(8, 8));
    mouse(QEvent::MouseButtonPress, centre({7, header}), Qt::RightButton);
    report(driverEvent::StateReplaced{matrix(3, 3)});
    view.performMenuEntry(1);
    EXPECT_EQ(told(), Calls{});
}

TEST_F(GridViewTest, AMenuDoesNothingThatItDidNotSay)
{
    show(matrix(8, 8));
    mouse(QEvent::MouseButtonPress, centre({7, header}), Qt::RightButton);
    report(driverEvent::LockChanged{.destination = 7, .locked = true});
    view.performMenuEntry(1);
    EXPECT_EQ(told(), Calls{}) << "it said \"Lock\", and someone else has locked it meanwhile";
}

TEST_F(GridViewTest, ScrollsByTheWheelAlongTheAxisThatShiftSays)
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

TEST_F(GridViewTest, ScrollsByAFingerAndRoutesByATap)
{
    const QPointingDevice screen(QStringLiteral("screen"), 1, QInputDevice::DeviceType::TouchScreen,
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

TEST_F(GridViewTest, RaisesTheCellUnderThePointerUnlessConnected)
{
    show(matrix(8, 8));
    const QPointF justOutside(0, 23);
    const QRgb atRest = shownAt(frame(), centre({1, 3}) + justOutside);
    hover(centre({1, 3}));
    view.advance(untilAllRests);
    EXPECT_NE(shownAt(frame(), centre({1, 3}) + justOutside), atRest);
    hover(centre({1, 1}));
    view.advance(untilAllRests);
    EXPECT_EQ(shownAt(frame(), centre({1, 3}) + justOutside), atRest);
    EXPECT_EQ(shownAt(frame(), centre({1, 1}) + justOutside), atRest) << "connected";
}

TEST_F(GridViewTest, RaisesNothingAboveTheLimit)
{
    show(matrix(41, 40));
    hover(centre({1, 3}));
    view.advance(untilAllRests);
    EXPECT_EQ(paintedInFrame(), 0);
}

TEST_F(GridViewTest, HelpsWhereThePointerRests)
{
    show(matrix(8, 8));
    hover(centre({2, header}));
    EXPECT_EQ(view.toolTip(), QStringLiteral("Double-click to rename"));
    EXPECT_EQ(view.toolTipArea(), view.layout().rectOf({2, header}));
    hover(centre({2, 2}));
    EXPECT_EQ(view.toolTip(), QString());
}

TEST_F(GridViewTest, HelpsWhereTheKeyboardIsWhenThePointerIsElsewhere)
{
    show(matrix(8, 8));
    view.setFocusPlace({header, 0});
    EXPECT_EQ(view.toolTip(), QString()) << "nobody used the keyboard yet";
    press(Qt::Key_Right);
    EXPECT_EQ(view.toolTip(), view.model().signalHelp(1));
    EXPECT_EQ(view.toolTipArea(), view.layout().rectOf({header, 1}));
    hover(centre({2, 2}));
    EXPECT_EQ(view.toolTip(), QString());
}

TEST_F(GridViewTest, ShowsWhereTheKeyboardIsOnlyToThoseWhoUseIt)
{
    show(matrix(8, 8));
    const QPointF onTheRing(0, 23);
    const QRgb without = shownAt(frame(), centre({1, 1}) + onTheRing);
    click({1, 1});
    EXPECT_EQ(shownAt(frame(), centre({1, 1}) + onTheRing), without);
    press(Qt::Key_Down);
    press(Qt::Key_Up);
    EXPECT_NE(shownAt(frame(), centre({1, 1}) + onTheRing), without);
    click({1, 1});
    EXPECT_EQ(shownAt(frame(), centre({1, 1}) + onTheRing), without);
}

TEST_F(GridViewTest, RoutesOnceForAKeyHeldDown)
{
    show(matrix(8, 8));
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(&view, &repeated);
    EXPECT_EQ(told(), Calls{});
}

TEST_F(GridViewTest, ChangesOneRowOnScreenForOneTally)
{
    show(matrix(64, 64));
    const QImage before = frame();
    report(driverEvent::RouteChanged{0, 2, 5});
    view.advance(untilAllRests);
    const QImage now = frame();
    const QRectF row = view.layout().rectOf({2, 0});
    for (int y = 0; y < now.height(); ++y) {
        const bool isSame = std::equal(
            now.constScanLine(y), now.constScanLine(y) + now.bytesPerLine(), before.constScanLine(y));
        EXPECT_TRUE(isSame || (y >= row.top() - 3 && y <= row.bottom() + 3)) << "line " << y;
    }
    EXPECT_NE(now, before);
}

TEST_F(GridViewTest, ZoomsByASpringAroundTheUpperLeft)
{
    show(matrix(64, 64));
    view.scrollTo({490, 490});
    view.setCellSize(68);
    EXPECT_EQ(view.layout().field.cell, 44) << "not at once";
    view.advance(0.1);
    EXPECT_GT(view.layout().field.cell, 44);
    EXPECT_LT(view.layout().field.cell, 68);
    view.advance(untilAllRests);
    EXPECT_EQ(view.layout().field.cell, 68);
    EXPECT_NEAR(view.layout().rectOf({10, 10}).x(), view.layout().fieldOrigin().x(), 0.001);
}

TEST_F(GridViewTest, GivesUpScrollThatThereIsNoContentFor)
{
    show(matrix(64, 64));
    view.scrollTo({99999, 99999});
    report(driverEvent::StateReplaced{matrix(4, 4)});
    EXPECT_EQ(view.layout().scroll, QPointF(0, 0));
    view.setController(nullptr);
    frame();
    EXPECT_TRUE(view.model().sources().isEmpty());
}

} // namespace

} // namespace corvane
