#include "PaneRowsTest.h"

#include "AccessibleTest.h"
#include "Views/PaneRowsAccessible.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using Calls = std::vector<std::string>;
using Heard = std::vector<std::string>;

class PaneRowsAccessibleTest : public PaneRowsTest {
protected:
    using Reader = SurfaceReader<PaneRowsAccessible>;

    [[nodiscard]] QAccessibleInterface* list() { return QAccessible::queryAccessibleInterface(&rows); }
    [[nodiscard]] QAccessibleInterface* row(int position) { return list()->child(position); }
};

TEST_F(PaneRowsAccessibleTest, ReadsOutEveryRowInViewOrNot)
{
    auto state = matrix(2, 40);
    state.lockedDestinations = {1};
    show(state);
    EXPECT_EQ(list()->role(), QAccessible::List);
    EXPECT_EQ(nameOf(list()), "Destinations");
    ASSERT_EQ(list()->childCount(), 40);
    EXPECT_EQ(nameOf(row(0)), "Out 1, 1, In 1");
    EXPECT_EQ(nameOf(row(1)), "Out 2, 2, In 2, locked");
    EXPECT_EQ(nameOf(row(39)), "Out 40, 40, —");
    EXPECT_EQ(row(39)->role(), QAccessible::Button);
    EXPECT_TRUE(row(39)->state().offscreen);
    EXPECT_FALSE(row(1)->state().offscreen);
    EXPECT_EQ(list()->indexOfChild(row(39)), 39);
    EXPECT_EQ(row(39)->parent(), list());
    EXPECT_EQ(row(40), nullptr);
}

TEST_F(PaneRowsAccessibleTest, PressesWhatIsOutOfViewToo)
{
    show(matrix(40, 40));
    EXPECT_TRUE(row(0)->state().selected);
    pressOn(row(39));
    EXPECT_EQ(controller->selectedDestination(), 39);
    EXPECT_TRUE(row(39)->state().selected);
    EXPECT_FALSE(row(0)->state().selected);
}

TEST_F(PaneRowsAccessibleTest, RenamesLocksAndGangsByNamedActions)
{
    show(matrix(4, 4));
    act(row(2), u"Rename Destination…"_s);
    EXPECT_EQ(controller->renameTarget(), (PortRef{PortKind::destination, 2}));
    act(row(2), u"Lock"_s);
    EXPECT_EQ(told(), Calls{"setLock 2 0 true"});
    EXPECT_THAT(row(2)->actionInterface()->actionNames(), testing::Contains(u"Unlock"_s));
    act(row(1), u"Toggle Out 2 in selection"_s);
    EXPECT_TRUE(controller->selectedDestinations().isEmpty()) << "not offered yet";
    controller->setMultiSelectMode(true);
    act(row(1), u"Toggle Out 2 in selection"_s);
    EXPECT_EQ(controller->selectedDestinations(), (QSet<qint64>{0, 1}));
    act(row(1), u"no such action"_s);
}

TEST_F(PaneRowsAccessibleTest, TellsOfATallyOnlyInItsRow)
{
    show(matrix(4, 4));
    Reader reader(rows);
    report(driverEvent::RouteChanged{0, 2, 0});
    EXPECT_EQ(reader.heard(), Heard{"name: Out 3, 3, In 1"});
    controller->focusDestination(3);
    EXPECT_EQ(reader.heard(), (Heard{"state: Out 1, 1, In 1", "state: Out 4, 4, In 4"}));
    controller->setTakeMode(TakeMode::confirm);
    controller->focusDestination(3);
    EXPECT_EQ(reader.heard(), Heard{"description: Out 4, 4, In 4"});
    EXPECT_EQ(row(3)->text(QAccessible::Description), u"Staged"_s);
}

TEST_F(PaneRowsAccessibleTest, MakesNewChildrenForOtherPorts)
{
    show(matrix(4, 4));
    Reader reader(rows);
    report(driverEvent::StateReplaced{matrix(4, 2)});
    EXPECT_EQ(reader.heard(), Heard{"children: Destinations"});
    EXPECT_EQ(list()->childCount(), 2);
    EXPECT_EQ(row(2), nullptr);
}

TEST_F(PaneRowsAccessibleTest, FindsARowByAPointOnTheScreen)
{
    show(matrix(40, 40));
    press(Qt::Key_End);
    const QPoint point = rows.mapToGlobal(rows.layout().rectOf(37).center()).toPoint();
    EXPECT_EQ(list()->childAt(point.x(), point.y()), row(37));
    EXPECT_TRUE(row(37)->rect().contains(point));
    const QPoint corner = rows.mapToGlobal(QPointF(2, 2)).toPoint();
    EXPECT_EQ(list()->childAt(corner.x(), corner.y()), nullptr);
}

TEST_F(PaneRowsAccessibleTest, FollowsTheKeyboard)
{
    show(matrix(4, 4));
    rows.forceActiveFocus();
    EXPECT_EQ(list()->focusChild(), row(0));
    Reader reader(rows);
    press(Qt::Key_Down);
    EXPECT_THAT(reader.heard(), testing::Contains("focus: Out 2, 2, In 2"));
    act(row(3), QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(rows.focusRow(), 3);
    EXPECT_TRUE(row(3)->state().focused);
}

TEST_F(PaneRowsAccessibleTest, SaysNothingOnceTheRowsAreGone)
{
    auto passing = std::make_unique<PaneRows>(window.contentItem());
    connectTo(matrix(4, 4));
    model.setController(controller.get());
    passing->setModel(&model);
    const Reader reader(*passing);
    QAccessibleInterface* const child = reader.surface().child(1);
    passing.reset();
    EXPECT_FALSE(reader.surface().isValid());
    EXPECT_FALSE(child->isValid());
    EXPECT_EQ(nameOf(child), "");
    pressOn(child);
}

} // namespace

} // namespace corvane
