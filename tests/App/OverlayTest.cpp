#include "WindowTest.h"

#include <QPainter>
#include <QQuickItem>
#include <QtTest/QTest>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// What an operator must not change without meaning to.
struct OnAir {
    QList<qint64> sources;
    QSet<qint64> locked;
    bool isStaged = false;
    bool isRenaming = false;
    bool hasMenu = false;

    bool operator==(const OnAir&) const = default;
};

void PrintTo(const OnAir& onAir, std::ostream* out)
{
    for (const qint64 source : onAir.sources)
        *out << source << ' ';
    *out << "locked " << onAir.locked.size() << " staged " << onAir.isStaged << " renaming "
         << onAir.isRenaming << " menu " << onAir.hasMenu;
}

/// Presses all over what floats above the grid and the list.
class OverlayTest : public WindowTest {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        // Small enough to have ports beneath the bar.
        window->resize(860, 560);
    }

    [[nodiscard]] MatrixController& demo() const { return controller(u"Demo Router"_s); }

    [[nodiscard]] OnAir onAir() const
    {
        const auto& state = demo().state();
        OnAir now;
        for (const auto& destination : state.destinations)
            now.sources.append(state.source(destination.index, 0).value_or(-1));
        for (const auto& destination : state.destinations)
            if (state.isLocked(destination.index))
                now.locked.insert(destination.index);
        now.isStaged = demo().hasStaging();
        now.isRenaming = demo().renameTarget().has_value();
        now.hasMenu = find(QAccessible::MenuItem) != nullptr;
        return now;
    }

    /// What is seen, by the beginning of its type's name.
    [[nodiscard]] static QQuickItem* itemOf(const char* type, QQuickItem* in)
    {
        if (!in->isVisible())
            return nullptr;
        if (QByteArray(in->metaObject()->className()).startsWith(type))
            return in;
        for (QQuickItem* const child : in->childItems())
            if (QQuickItem* const found = itemOf(type, child))
                return found;
        return nullptr;
    }

    /// Where something answers to a press.
    static void collectControls(const QQuickItem& in, QList<QRectF>& rects)
    {
        const auto available = in.property("available");
        const bool isIdle = !in.isEnabled() || (available.isValid() && !available.toBool());
        if (in.inherits("QQuickAbstractButton") && in.isVisible() && !isIdle)
            rects.append(in.mapRectToScene(in.boundingRect()));
        for (const QQuickItem* const child : in.childItems())
            collectControls(*child, rects);
    }

    /// A lattice of points over an item, without those on controls that do something.
    [[nodiscard]] static QList<QPoint> pointsOf(const QQuickItem& item)
    {
        QList<QRectF> controls;
        collectControls(item, controls);
        QList<QPoint> points;
        constexpr int columns = 14;
        constexpr int rows = 4;
        for (int column = 0; column < columns; ++column)
            for (int row = 0; row < rows; ++row) {
                const QPointF at(item.width() * (column + 0.5) / columns, item.height() * (row + 0.5) / rows);
                const auto point = item.mapToScene(at).toPoint();
                if (std::ranges::none_of(controls, [&](const QRectF& rect) { return rect.contains(point); }))
                    points.append(point);
            }
        return points;
    }

    void turnWheel(QPoint point)
    {
        QWheelEvent event(point, window->mapToGlobal(point), {0, -30}, {0, -120}, Qt::NoButton,
            Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(window.get(), &event);
    }

    /// Everything that a pointer can do at one point.
    void tryEverythingAt(QPoint point)
    {
        QTest::mouseMove(window.get(), point);
        QTest::mouseClick(window.get(), Qt::LeftButton, {}, point);
        queue.advance(1s);
        QTest::mouseDClick(window.get(), Qt::LeftButton, {}, point);
        queue.advance(1s);
        QTest::mouseClick(window.get(), Qt::RightButton, {}, point);
        QTest::mouseClick(window.get(), Qt::MiddleButton, {}, point);
        turnWheel(point);
        queue.advance(1s);
        QCoreApplication::processEvents();
    }

    /// What is seen beside an item.
    [[nodiscard]] QImage screenWithout(const QQuickItem& item)
    {
        settle();
        auto screen = window->grabWindow();
        constexpr int shadow = 30;
        const auto covered = item.mapRectToScene(item.boundingRect()).toAlignedRect();
        QPainter(&screen).fillRect(covered.adjusted(-shadow, -shadow, shadow, shadow), Qt::black);
        return screen;
    }

    void expectNothingReachesWhatLiesBeneath(const QQuickItem& overlay)
    {
        const auto points = pointsOf(overlay);
        ASSERT_GT(points.size(), 10);
        const auto before = onAir();
        const auto seenBefore = screenWithout(overlay);
        for (const QPoint point : points) {
            tryEverythingAt(point);
            ASSERT_EQ(onAir(), before) << "at " << point.x() << ',' << point.y();
        }
        // No row under the pointer, none selected, nothing scrolled.
        EXPECT_TRUE(screenWithout(overlay) == seenBefore);
    }
};

TEST_F(OverlayTest, NoPressOnTheBarReachesWhatLiesBeneath)
{
    for (const auto view : {RouteViewMode::matrix, RouteViewMode::list})
        for (const auto mode : {TakeMode::immediate, TakeMode::confirm})
            for (const auto direction : {RoutingDirection::destinationLed, RoutingDirection::sourceLed}) {
                SCOPED_TRACE(testing::Message()
                    << "view " << static_cast<int>(view) << ", take mode " << static_cast<int>(mode)
                    << ", direction " << static_cast<int>(direction));
                demo().setViewMode(view);
                demo().setDirection(direction);
                demo().setTakeMode(mode);
                settle();
                expectNothingReachesWhatLiesBeneath(*itemOf("FloatingSurface", window->contentItem()));
            }
}

TEST_F(OverlayTest, ABarThatIsCalledBackAtOnceStandsWhereItStood)
{
    const auto resize = [this](int width) {
        window->resize(width, 560);
        QCoreApplication::processEvents();
        (void)window->grabWindow();
    };
    demo().setTakeMode(TakeMode::confirm);
    resize(1180);
    settle();
    const auto before = window->grabWindow();
    resize(860);
    resize(1180);
    settle();
    EXPECT_TRUE(window->grabWindow() == before);
}

TEST_F(OverlayTest, ThePressThatClosesAMenuDoesNothingElse)
{
    const auto before = onAir();
    const QPoint cell(560, 250);
    QTest::mouseClick(window.get(), Qt::RightButton, {}, {340, 400});
    settle();
    ASSERT_TRUE(onAir().hasMenu);
    QTest::mouseClick(window.get(), Qt::LeftButton, {}, cell);
    settle();
    EXPECT_EQ(onAir(), before);
    QTest::mouseClick(window.get(), Qt::LeftButton, {}, cell);
    settle();
    EXPECT_NE(onAir(), before) << "without a menu it routes";
}

} // namespace

} // namespace corvane
