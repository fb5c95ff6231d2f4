#include "AccessibleTest.h"
#include "GridViewTest.h"

#include "Views/GridAccessible.h"

namespace corvane {

namespace {

constexpr int header = GridPlace::header;

class GridAccessibleTest : public GridViewTest {
protected:
    using Reader = SurfaceReader<GridAccessible>;

    void showSimulated(qint64 sources, qint64 destinations)
    {
        RouterState state = matrix(sources, destinations);
        state.inputStatus.insert(1, {true, std::nullopt});
        show(state);
    }

    [[nodiscard]] QAccessibleInterface* grid() { return QAccessible::queryAccessibleInterface(&view); }

    [[nodiscard]] QAccessibleInterface* find(const QString& name)
    {
        for (int i = 0; i < grid()->childCount(); ++i)
            if (QAccessibleInterface* const child = grid()->child(i); child->text(QAccessible::Name) == name)
                return child;
        return nullptr;
    }
};

TEST_F(GridAccessibleTest, ReadsOutHeadersAndCells)
{
    showSimulated(3, 2);
    std::vector<std::string> names;
    for (int i = 0; i < grid()->childCount(); ++i)
        names.push_back(grid()->child(i)->text(QAccessible::Name).toStdString());
    EXPECT_EQ(names,
        (std::vector<std::string>{"In 1", "In 2", "In 3", "Out 1, 1, In 1", "Out 1 from In 1",
            "Out 1 from In 2", "Out 1 from In 3", "Out 2, 2, In 2", "Out 2 from In 1", "Out 2 from In 2",
            "Out 2 from In 3"}));
    for (int i = 0; i < grid()->childCount(); ++i) {
        EXPECT_EQ(grid()->child(i)->role(), QAccessible::Button);
        EXPECT_EQ(grid()->indexOfChild(grid()->child(i)), i);
        EXPECT_EQ(grid()->child(i)->parent(), grid());
    }
    EXPECT_EQ(grid()->child(grid()->childCount()), nullptr);
}

TEST_F(GridAccessibleTest, RoutesByAPressAndThenReadsConnected)
{
    showSimulated(3, 2);
    QAccessibleInterface* const cell = find(QStringLiteral("Out 1 from In 3"));
    EXPECT_EQ(cell->text(QAccessible::Description), QStringLiteral("Not connected"));
    EXPECT_TRUE(cell->state().checkable);
    EXPECT_FALSE(cell->state().checked);
    pressOn(cell);
    EXPECT_EQ(told(), std::vector<std::string>{"takeAll 0:0<2"});
    EXPECT_EQ(cell->text(QAccessible::Description), QStringLiteral("Connected"));
    EXPECT_TRUE(cell->state().checked);
    EXPECT_EQ(find(QStringLiteral("Out 1 from In 3")), cell) << "the same as before";
}

TEST_F(GridAccessibleTest, TellsOfATallyOnlyWhatIsDifferent)
{
    showSimulated(3, 2);
    Reader reader(view);
    report(driverEvent::RouteChanged{0, 0, 2});
    EXPECT_THAT(reader.heard(),
        testing::UnorderedElementsAre("name: Out 1, 1, In 3", "description: Out 1 from In 1",
            "state: Out 1 from In 1", "description: Out 1 from In 3", "state: Out 1 from In 3"));
}

TEST_F(GridAccessibleTest, TellsNothingOfWhatNobodyHasRead)
{
    showSimulated(3, 2);
    int count = 0;
    const GridAccessible unread(view, [&](QAccessibleEvent&) { ++count; });
    report(driverEvent::RouteChanged{0, 0, 2});
    EXPECT_EQ(count, 0);
}

TEST_F(GridAccessibleTest, ReadsTheSignalOfASource)
{
    showSimulated(3, 2);
    EXPECT_EQ(find(QStringLiteral("In 1"))->text(QAccessible::Description), QString()) << "nothing known";
    EXPECT_EQ(find(QStringLiteral("In 2"))->text(QAccessible::Description), QStringLiteral("Signal present"));
    Reader reader(view);
    report(driverEvent::InputStatusChanged{1, InputSignalStatus{}});
    EXPECT_EQ(reader.heard(), std::vector<std::string>{"description: In 2"});
}

TEST_F(GridAccessibleTest, RoutesThroughHeadersInConfirmMode)
{
    showSimulated(3, 2);
    controller->setTakeMode(TakeMode::confirm);
    QAccessibleInterface* const destination = find(QStringLiteral("Out 2, 2, In 2"));
    pressOn(destination);
    EXPECT_EQ(controller->pendingDestination(), 1);
    EXPECT_TRUE(destination->state().selected);
    act(find(QStringLiteral("In 1")), QStringLiteral("Route to Selected Destination"));
    EXPECT_EQ(controller->pendingSource(), 0);
}

TEST_F(GridAccessibleTest, RenamesAndLocksByNamedActions)
{
    showSimulated(3, 2);
    act(find(QStringLiteral("In 3")), QStringLiteral("Rename"));
    EXPECT_EQ(controller->renameTarget(), (PortRef{PortKind::source, 2}));
    QAccessibleInterface* const destination = find(QStringLiteral("Out 2, 2, In 2"));
    act(destination, QStringLiteral("Rename Destination…"));
    EXPECT_EQ(controller->renameTarget(), (PortRef{PortKind::destination, 1}));
    act(destination, QStringLiteral("Lock"));
    EXPECT_EQ(destination->text(QAccessible::Name), QStringLiteral("Out 2, 2, In 2, locked"));
    EXPECT_THAT(destination->actionInterface()->actionNames(), testing::Contains(QStringLiteral("Unlock")));
    act(destination, QStringLiteral("no such action"));
}

TEST_F(GridAccessibleTest, ReadsManyCellsAsOneField)
{
    showSimulated(41, 40);
    ASSERT_EQ(grid()->childCount(), 41 + 40 + 1);
    QAccessibleInterface* const field = grid()->child(81);
    EXPECT_EQ(
        field->text(QAccessible::Name), QStringLiteral("Crosspoint grid, 41 sources by 40 destinations"));
    EXPECT_EQ(field->text(QAccessible::Description),
        QStringLiteral(
            "In Take mode, activate a destination header, then use a source header's Route action"));
    EXPECT_EQ(grid()->indexOfChild(field), 81);
    EXPECT_FALSE(field->state().checkable);
    const QPoint cell = view.mapToGlobal(centre({2, 3})).toPoint();
    EXPECT_EQ(grid()->childAt(cell.x(), cell.y()), field);
    EXPECT_EQ(find(QStringLiteral("Out 40, 40, In 40"))->role(), QAccessible::Button);
    pressOn(field);
    EXPECT_TRUE(told().empty());
}

TEST_F(GridAccessibleTest, FindsAChildByAPointOnTheScreen)
{
    showSimulated(8, 8);
    for (const GridPlace place : {GridPlace{2, 3}, GridPlace{2, header}, GridPlace{header, 3}}) {
        const QPoint point = view.mapToGlobal(centre(place)).toPoint();
        QAccessibleInterface* const child = grid()->childAt(point.x(), point.y());
        ASSERT_NE(child, nullptr);
        EXPECT_TRUE(child->rect().contains(point));
        EXPECT_EQ(grid()->child(grid()->indexOfChild(child)), child);
    }
    const QPoint corner = view.mapToGlobal(QPointF(5, 5)).toPoint();
    EXPECT_EQ(grid()->childAt(corner.x(), corner.y()), nullptr);
}

TEST_F(GridAccessibleTest, MakesNewChildrenForOtherPorts)
{
    showSimulated(8, 8);
    ASSERT_NE(find(QStringLiteral("Out 8 from In 8")), nullptr);
    Reader reader(view);
    report(driverEvent::StateReplaced{matrix(2, 2)});
    EXPECT_EQ(reader.heard(), std::vector<std::string>{"children: Crosspoint matrix"});
    EXPECT_EQ(grid()->childCount(), 2 + 2 + 4);
    EXPECT_EQ(find(QStringLiteral("Out 8 from In 8")), nullptr);
    EXPECT_NE(find(QStringLiteral("Out 2 from In 1")), nullptr);
}

TEST_F(GridAccessibleTest, TellsOfNewNames)
{
    showSimulated(2, 2);
    Reader reader(view);
    report(driverEvent::LabelChanged{PortKind::source, 1, QStringLiteral("Cam")});
    EXPECT_THAT(reader.heard(),
        testing::UnorderedElementsAre(
            "name: Cam", "name: Out 1 from Cam", "name: Out 2, 2, Cam", "name: Out 2 from Cam"));
}

TEST_F(GridAccessibleTest, FollowsTheKeyboard)
{
    showSimulated(3, 3);
    view.forceActiveFocus();
    ASSERT_TRUE(view.hasActiveFocus());
    EXPECT_EQ(grid()->focusChild(), find(QStringLiteral("Out 1 from In 1")));
    Reader reader(view);
    press(Qt::Key_Down);
    EXPECT_EQ(reader.heard(), std::vector<std::string>{"focus: Out 2 from In 1"});
    act(find(QStringLiteral("In 3")), QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(view.focusPlace(), (GridPlace{header, 2}));
    EXPECT_TRUE(grid()->focusChild()->state().focused);
}

TEST_F(GridAccessibleTest, KnowsItsParentAndWindow)
{
    showSimulated(2, 2);
    EXPECT_EQ(grid()->parent(), QAccessible::queryAccessibleInterface(&window));
    EXPECT_EQ(grid()->child(0)->window(), &window);
}

} // namespace

} // namespace corvane
