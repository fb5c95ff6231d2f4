#include "GridViewTest.h"

namespace corvane {

namespace {

/// Longer than anything moves.
constexpr double untilAllRests = 10;

QRgb shownAt(const QImage& frame, QPointF point)
{
    return frame.pixel((point * frame.devicePixelRatio()).toPoint());
}

TEST_F(GridViewTest, MovesAConnectionByASpring)
{
    show(matrix(8, 8));
    report(driverEvent::RouteChanged{0, 2, 5});
    const QRgb before = shownAt(frame(), centre({2, 5}));
    view.advance(0.05);
    const QRgb under = shownAt(frame(), centre({2, 5}));
    EXPECT_NE(under, before);
    report(driverEvent::RouteChanged{0, 2, 2});
    EXPECT_EQ(shownAt(frame(), centre({2, 5})), under) << "turns round where it is";
    report(driverEvent::RouteChanged{0, 2, 5});
    frame();
    view.advance(untilAllRests);
    EXPECT_NE(under, shownAt(frame(), centre({2, 5}))) << "on its way";
    EXPECT_EQ(shownAt(frame(), centre({2, 5})), QColor(Qt::white).rgb());
    EXPECT_NE(shownAt(frame(), centre({2, 2})), QColor(Qt::white).rgb());
}

TEST_F(GridViewTest, PaintsOneRowForOneTally)
{
    show(matrix(64, 64));
    for (qint64 source = 10; source <= 40; ++source)
        report(driverEvent::RouteChanged{0, 2, source});
    EXPECT_EQ(paintedInFrame(), 1) << "the header, which names the source";
    view.advance(untilAllRests);
    EXPECT_LE(paintedInFrame(), 2) << "the strip that was left; the one reached is out of view";
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
    large.setModel(&model);
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
    // Row and column 10 connect: their dot shows in the field's corner, and nothing of it above the headers.
    EXPECT_EQ(shownAt(frame(), centre({10, 10})), QColor(Qt::white).rgb());
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
    hover(centre({1, 3}));
    QHoverEvent left(QEvent::HoverLeave, QPointF(), QPointF(), QPointF());
    QCoreApplication::sendEvent(&view, &left);
    view.advance(untilAllRests);
    EXPECT_EQ(shownAt(frame(), centre({1, 3}) + justOutside), atRest) << "the pointer has left";
}

TEST(FrameTicker, TicksWithTheTimeThatHasPassedSinceTheLastFrame)
{
    std::vector<double> ticks;
    FrameTicker ticker([&](double seconds) { ticks.push_back(seconds); });
    ticker.keepRunning(true);
    ticks.clear();
    for (const int milliseconds : {250, 250, 750})
        ticker.setCurrentTime(milliseconds);
    EXPECT_EQ(ticks, (std::vector{0.25, 0.5}));
    ticker.keepRunning(false);
    EXPECT_EQ(ticker.state(), QAbstractAnimation::Stopped);
    ticker.keepRunning(true);
    ticker.setCurrentTime(125);
    EXPECT_EQ(ticks.back(), 0.125) << "from the beginning again";
}

TEST_F(GridViewTest, ShowsWhereTheKeyboardIsOnlyToThoseWhoUseIt)
{
    show(matrix(8, 8));
    const QPointF onTheRing(0, 23);
    const QRgb without = shownAt(frame(), centre({1, 1}) + onTheRing);
    click(centre({1, 1}));
    EXPECT_EQ(shownAt(frame(), centre({1, 1}) + onTheRing), without);
    press(Qt::Key_Down);
    press(Qt::Key_Up);
    EXPECT_NE(shownAt(frame(), centre({1, 1}) + onTheRing), without);
    click(centre({1, 1}));
    EXPECT_EQ(shownAt(frame(), centre({1, 1}) + onTheRing), without);
}

TEST_F(GridViewTest, ZoomsByASpringAroundTheUpperLeft)
{
    show(matrix(64, 64));
    view.scrollTo({490, 490});
    view.setCellSize(68);
    EXPECT_EQ(view.layout().cell, 44) << "not at once";
    view.advance(0.1);
    EXPECT_GT(view.layout().cell, 44);
    EXPECT_LT(view.layout().cell, 68);
    view.advance(untilAllRests);
    EXPECT_EQ(view.layout().cell, 68);
    EXPECT_NEAR(view.layout().rectOf({10, 10}).x(), view.layout().fieldOrigin().x(), 0.001);
}

TEST_F(GridViewTest, GivesUpScrollThatThereIsNoContentFor)
{
    show(matrix(64, 64));
    view.scrollTo({99999, 99999});
    view.setSize({view.contentWidth(), 500});
    EXPECT_EQ(view.contentX(), 0);
    EXPECT_GT(view.contentY(), 0);
    report(driverEvent::StateReplaced{matrix(4, 4)});
    EXPECT_EQ(view.layout().scroll, QPointF(0, 0));
    model.setController(nullptr);
    frame();
    EXPECT_TRUE(model.sources().isEmpty());
}

} // namespace

} // namespace corvane
