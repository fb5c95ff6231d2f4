#include "AccessibleTest.h"
#include "GridViewTest.h"

#include "Views/Grid/GridAccessible.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

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

    [[nodiscard]] std::vector<std::string> names()
    {
        std::vector<std::string> names;
        for (int i = 0; i < grid()->childCount(); ++i)
            names.push_back(nameOf(grid()->child(i)));
        return names;
    }
};

TEST_F(GridAccessibleTest, ReadsOutHeadersAndCells)
{
    showSimulated(3, 2);
    EXPECT_EQ(names(),
        (std::vector<std::string>{"In 1, 1", "In 2, 2", "In 3, 3", "Out 1, 1, In 1", "Out 1 from In 1",
            "Out 1 from In 2", "Out 1 from In 3", "Out 2, 2, In 2", "Out 2 from In 1", "Out 2 from In 2",
            "Out 2 from In 3"}));
    for (int i = 0; i < grid()->childCount(); ++i) {
        EXPECT_EQ(grid()->child(i)->role(), QAccessible::Button);
        EXPECT_EQ(grid()->indexOfChild(grid()->child(i)), i);
        EXPECT_EQ(grid()->child(i)->parent(), grid());
        EXPECT_EQ(grid()->child(i)->window(), &window);
    }
    EXPECT_EQ(grid()->child(grid()->childCount()), nullptr);
    EXPECT_EQ(grid()->parent(), QAccessible::queryAccessibleInterface(&window));
}

TEST_F(GridAccessibleTest, NamesWhatHasNoLabelAndWhatIsOutsideThePanel)
{
    RouterState state = matrix(2, 2);
    state.sources[0].label.clear();
    state.destinations[0].label = u" "_s;
    show(state);
    const SubPanel panel{.name = u"P"_s, .sourceIndices = {0}, .destinationIndices = {0, 1}};
    controller->savePanel(panel);
    controller->setActivePanelID(panel.id);
    report(driverEvent::LockChanged{1, true});
    EXPECT_EQ(names(),
        (std::vector<std::string>{"Source 1", "Destination 1, Source 1", "Destination 1 from Source 1",
            "Out 2, 2, In 2, from outside the panel, locked", "Out 2 from Source 1"}));
}

TEST_F(GridAccessibleTest, SaysWhatIsStaged)
{
    showSimulated(3, 2);
    controller->setTakeMode(TakeMode::confirm);
    act(find(u"Out 2 from In 3"_s), QAccessibleActionInterface::pressAction());
    const std::set<std::string> staged{"In 3, 3", "Out 2, 2, In 2", "Out 2 from In 3"};
    for (int i = 0; i < grid()->childCount(); ++i) {
        const auto* const child = grid()->child(i);
        const bool isStaged = staged.contains(nameOf(child));
        EXPECT_EQ(child->text(QAccessible::Help), isStaged ? u"Staged"_s : QString()) << nameOf(child);
        EXPECT_EQ(child->state().selected, isStaged) << nameOf(child);
    }
    EXPECT_EQ(find(u"Out 2, 2, In 2"_s)->text(QAccessible::Description), u"Staged"_s);
}

TEST_F(GridAccessibleTest, RoutesByAPressAndThenReadsConnected)
{
    showSimulated(3, 2);
    QAccessibleInterface* const cell = find(u"Out 1 from In 3"_s);
    EXPECT_EQ(cell->text(QAccessible::Description), u"Not connected"_s);
    EXPECT_TRUE(cell->state().checkable);
    EXPECT_FALSE(cell->state().checked);
    pressOn(cell);
    EXPECT_EQ(told(), std::vector<std::string>{"takeAll 0:0<2"});
    EXPECT_EQ(cell->text(QAccessible::Description), u"Connected"_s);
    EXPECT_TRUE(cell->state().checked);
    EXPECT_EQ(find(u"Out 1 from In 3"_s), cell) << "the same as before";
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
    EXPECT_EQ(find(u"In 1, 1"_s)->text(QAccessible::Description), QString()) << "nothing known";
    EXPECT_EQ(find(u"In 2, 2"_s)->text(QAccessible::Description), u"Signal present"_s);
    Reader reader(view);
    report(driverEvent::InputStatusChanged{1, InputSignalStatus{}});
    EXPECT_EQ(reader.heard(), std::vector<std::string>{"description: In 2, 2"});
}

TEST_F(GridAccessibleTest, DoesWhatItsActionsSay)
{
    showSimulated(3, 2);
    controller->setTakeMode(TakeMode::confirm);
    QAccessibleInterface* const destination = find(u"Out 2, 2, In 2"_s);
    pressOn(destination);
    EXPECT_EQ(controller->pendingDestination(), 1);
    act(find(u"In 1, 1"_s), u"Route to Selected Destination"_s);
    EXPECT_EQ(controller->pendingSource(), 0);
    act(destination, u"Rename Destination…"_s);
    EXPECT_EQ(controller->renameTarget(), (PortRef{PortKind::destination, 1}));
    act(destination, u"Lock"_s);
    EXPECT_EQ(destination->text(QAccessible::Name), u"Out 2, 2, In 2, locked"_s);
    EXPECT_THAT(destination->actionInterface()->actionNames(), testing::Contains(u"Unlock"_s));
    act(destination, u"no such action"_s);
}

TEST_F(GridAccessibleTest, ReadsManyCellsAsOneField)
{
    showSimulated(41, 40);
    ASSERT_EQ(grid()->childCount(), 41 + 40 + 1);
    QAccessibleInterface* const field = grid()->child(81);
    EXPECT_EQ(field->text(QAccessible::Name), u"Crosspoint grid, 41 sources by 40 destinations"_s);
    EXPECT_TRUE(field->text(QAccessible::Help).isEmpty());
    EXPECT_EQ(field->text(QAccessible::Description),
        u"In Take mode, activate a destination header, then use a source header's Route action"_s);
    EXPECT_EQ(grid()->indexOfChild(field), 81);
    EXPECT_FALSE(field->state().checkable);
    const QPoint cell = view.mapToGlobal(centre({2, 3})).toPoint();
    EXPECT_EQ(grid()->childAt(cell.x(), cell.y()), field);
    EXPECT_EQ(find(u"Out 40, 40, In 40"_s)->role(), QAccessible::Button);
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

TEST_F(GridAccessibleTest, TellsOfNewNamesAndOfOtherPorts)
{
    showSimulated(2, 2);
    Reader reader(view);
    report(driverEvent::LabelChanged{PortKind::source, 1, u"Cam"_s});
    EXPECT_THAT(reader.heard(),
        testing::UnorderedElementsAre(
            "name: Cam, 2", "name: Out 1 from Cam", "name: Out 2, 2, Cam", "name: Out 2 from Cam"));
    report(driverEvent::StateReplaced{matrix(1, 2)});
    EXPECT_EQ(reader.heard(), std::vector<std::string>{"children: Crosspoint matrix"});
    EXPECT_EQ(names(),
        (std::vector<std::string>{
            "In 1, 1", "Out 1, 1, In 1", "Out 1 from In 1", "Out 2, 2, —", "Out 2 from In 1"}));
}

TEST_F(GridAccessibleTest, FollowsTheKeyboard)
{
    showSimulated(3, 3);
    view.forceActiveFocus();
    ASSERT_TRUE(view.hasActiveFocus());
    EXPECT_EQ(grid()->focusChild(), find(u"Out 1 from In 1"_s));
    Reader reader(view);
    press(Qt::Key_Down);
    EXPECT_EQ(reader.heard(), std::vector<std::string>{"focus: Out 2 from In 1"});
    act(find(u"In 3, 3"_s), QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(view.focusPlace(), (GridPlace{header, 2}));
    EXPECT_TRUE(grid()->focusChild()->state().focused);
}

} // namespace

} // namespace corvane
