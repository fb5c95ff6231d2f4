#include "QmlTest.h"
#include "TestRows.h"
#include "Views/Shared/RowArea.h"
#include "Views/Shared/RowAreaAccessible.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using Done = std::vector<std::string>;

/// A list of rows 40 high and 10 apart, with 10 around them and 60 under something that floats, 400 high.
class RowListTest : public QmlTest {
protected:
    void show(std::unique_ptr<TestRows> rows)
    {
        model = std::move(rows);
        loadText(R"(
            import QtQuick
            import Corvane.Views.Shared
            RowList {
                label: "Things"
                sidePadding: 20
                topPadding: 10
                bottomPadding: 10
                spacing: 10
                clearance: 60
                focus: true
                delegate: RowItem {
                    id: row
                    required property string name
                    required property real rowHeight
                    required property var buttons
                    height: rowHeight
                    RowButtons {
                        row: row
                        actions: row.buttons
                    }
                }
            })",
            {300, 400}, {{u"model"_s, QVariant::fromValue<RowListModel*>(model.get())}});
        area = qobject_cast<RowArea*>(list()->object());
        area->forceActiveFocus();
        (void)model->done();
    }
    void show(int rows) { show(std::make_unique<TestRows>(rows)); }

    [[nodiscard]] QAccessibleInterface* list() { return find(QAccessible::List, u"Things"_s); }
    [[nodiscard]] QAccessibleInterface* row(int position) { return list()->child(position); }
    [[nodiscard]] QPointF pointOf(int position) const
    {
        return area->mapToScene(area->rectOf(position).center());
    }
    [[nodiscard]] std::string current() const
    {
        const auto* const shown = model->rowAt(area->currentRow());
        return shown ? shown->name.toStdString() : "none";
    }
    [[nodiscard]] Done menu() const
    {
        Done texts;
        for (const auto& action : area->menu())
            texts.push_back(action.text.toStdString());
        return texts;
    }

    std::unique_ptr<TestRows> model;
    RowArea* area = nullptr;
};

TEST_F(RowListTest, BeginsWhereTheWorkIsAndStaysWhereItWasPut)
{
    auto rows = std::make_unique<TestRows>(100);
    rows->start = 50;
    show(std::move(rows));
    EXPECT_EQ(current(), "Row 50");
    EXPECT_EQ(area->rectOf(50).center().y(), 10 + (400 - 10 - 70) / 2);
    press(Qt::Key_Home);
    model->setNames({u"Row 0"_s, u"Row 1"_s});
    draw();
    EXPECT_EQ(current(), "Row 0");
    model->setRows({});
    draw();
    EXPECT_EQ(current(), "none");
    model->start = 1;
    model->setNames({u"x"_s, u"y"_s});
    draw();
    EXPECT_EQ(current(), "y") << "other rows";
}

TEST_F(RowListTest, TheKeyboardMovesFromRowToRow)
{
    auto rows = std::make_unique<TestRows>(40);
    rows->setRow(0, {.name = u"Row 0"_s, .isHead = true});
    rows->setRow(20, {.name = u"Row 20"_s, .isHead = true});
    show(std::move(rows));
    struct Case {
        const char* name;
        int from;
        Qt::Key key;
        int to;
        Qt::KeyboardModifiers modifiers = Qt::NoModifier;
        bool isTaken = true;
    };
    const Case cases[] = {
        {"down", 3, Qt::Key_Down, 4},
        {"up", 3, Qt::Key_Up, 2, Qt::KeypadModifier},
        {"over a head", 19, Qt::Key_Down, 21},
        {"up over a head", 21, Qt::Key_Up, 19},
        {"up from the first", 1, Qt::Key_Up, 1},
        {"down from the last", 39, Qt::Key_Down, 39},
        {"home", 20, Qt::Key_Home, 1},
        {"end", 3, Qt::Key_End, 39},
        {"a page down", 3, Qt::Key_PageDown, 8},
        {"a page up", 8, Qt::Key_PageUp, 3},
        {"less than a page", 38, Qt::Key_PageDown, 39},
        {"across", 3, Qt::Key_Right, 3, Qt::NoModifier, false},
        {"with Ctrl", 3, Qt::Key_Down, 3, Qt::ControlModifier, false},
        {"with Shift", 3, Qt::Key_End, 3, Qt::ShiftModifier, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        area->setCurrentRow(c.from);
        model->arrivals.clear();
        EXPECT_EQ(press(c.key, c.modifiers), c.isTaken);
        EXPECT_EQ(area->currentRow(), c.to);
        EXPECT_EQ(model->arrivals, c.isTaken ? std::vector{c.to} : std::vector<int>());
        if (c.isTaken) {
            EXPECT_GE(area->rectOf(c.to).top(), 10);
            EXPECT_LE(area->rectOf(c.to).bottom(), 400 - 70);
        }
    }
    EXPECT_TRUE(press(Qt::Key_Down, Qt::NoModifier, true)) << "held down";
}

TEST_F(RowListTest, KeysActOnTheRowThatHasTheKeyboard)
{
    show(5);
    area->setCurrentRow(2);
    struct Case {
        const char* name;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        Done done;
        bool isRepeat = false;
    };
    const Case cases[] = {
        {"Space", Qt::Key_Space, {}, {"press Row 2"}},
        {"Return", Qt::Key_Return, {}, {"press Row 2"}},
        {"Enter", Qt::Key_Enter, Qt::KeypadModifier, {"press Row 2"}},
        {"Delete", Qt::Key_Delete, {}, {"Delete Row 2"}},
        {"Backspace", Qt::Key_Backspace, {}, {"Delete Row 2"}},
        {"F2", Qt::Key_F2, {}, {"Rename Row 2"}},
        {"Alt+Up", Qt::Key_Up, Qt::AltModifier, {"Move Up Row 2"}},
        {"Space held down", Qt::Key_Space, {}, {}, true},
        {"Ctrl+Space", Qt::Key_Space, Qt::ControlModifier, {}},
        {"Shift+F2", Qt::Key_F2, Qt::ShiftModifier, {}},
        {"F10 alone", Qt::Key_F10, {}, {}},
        {"a letter", Qt::Key_A, {}, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(press(c.key, c.modifiers, c.isRepeat), !c.done.empty());
        EXPECT_EQ(model->done(), c.done);
    }
    area->setProperty("returnPresses", false);
    EXPECT_FALSE(press(Qt::Key_Return));
    model->setRows({});
    for (const auto key : {Qt::Key_Space, Qt::Key_F2, Qt::Key_Menu})
        EXPECT_FALSE(press(key)) << "no rows";
    EXPECT_TRUE(press(Qt::Key_End));
}

TEST_F(RowListTest, ThePointerActsOnWhatIsPressedAndScrollsNothing)
{
    show(40);
    turnWheel(pointOf(2), -25);
    EXPECT_EQ(area->rectOf(0).top(), 10 - 25);
    click(area->mapToScene({150, 2}));
    EXPECT_EQ(model->done(), Done{"click Row 0"}) << "half of it is in view";
    EXPECT_EQ(area->rectOf(0).top(), 10 - 25);
    EXPECT_EQ(current(), "Row 0");
    EXPECT_TRUE(area->hasActiveFocus());
    EXPECT_FALSE(area->showsFocus());
    clickAgain(area->mapToScene({150, 2}));
    EXPECT_EQ(model->done(), Done{"doubleClick Row 0"});
    press(Qt::Key_Down);
    EXPECT_TRUE(area->showsFocus());
    EXPECT_EQ(area->rectOf(1).top(), 10 + 50 - 25) << "wholly in view already";
    click(area->mapToScene({5, 100}));
    EXPECT_EQ(model->done(), Done{}) << "beside the rows";
}

TEST_F(RowListTest, TheWheelMovesTheRowsAtOnceAndNoFartherThanTheyGo)
{
    show(40);
    turnWheel({150, 100}, -700);
    EXPECT_EQ(area->rectOf(14).top(), 10);
    click(pointOf(15));
    EXPECT_EQ(model->done(), Done{"click Row 15"});
    turnWheel({150, 100}, -50000);
    EXPECT_EQ(area->rectOf(39).bottom(), 400 - 70) << "clear of what floats";
    turnWheel({150, 100}, 50000);
    EXPECT_EQ(area->rectOf(0).top(), 10);
    area->turnWheel({}, {0, -120});
    EXPECT_LT(area->rectOf(0).top(), 10 - 24) << "a notch";
}

TEST_F(RowListTest, RowsThatUnfoldKeepTheirPlaceAndAreShown)
{
    show(20);
    model->setRow(1, {.name = u"Row 1"_s, .height = 200});
    draw();
    EXPECT_EQ(area->rectOf(1), QRectF(20, 60, 260, 200));
    EXPECT_EQ(area->rectOf(2).top(), 270);
    area->setCurrentRow(2);
    press(Qt::Key_Down);
    draw();
    EXPECT_EQ(area->rectOf(3).bottom(), 330);
    model->setRow(4, {.name = u"Row 4"_s, .height = 500});
    press(Qt::Key_Down);
    draw();
    EXPECT_EQ(area->rectOf(4).top(), 10) << "higher than the list: its beginning";
}

TEST_F(RowListTest, TheKeyboardAndTheMenuStayWithTheirRow)
{
    show(10);
    area->setCurrentRow(5);
    press(Qt::Key_Menu);
    EXPECT_EQ(menu(), (Done{"Rename", "Delete"}));
    model->setNames({u"Row 7"_s, u"Row 5"_s, u"Row 6"_s});
    EXPECT_EQ(current(), "Row 5");
    EXPECT_EQ(area->menuRow(), 1);
    area->chooseInMenu(u"Delete"_s);
    EXPECT_EQ(model->done(), Done{"Delete Row 5"});
    EXPECT_EQ(area->menuRow(), -1);
    model->setNames({u"Row 7"_s, u"Row 6"_s});
    EXPECT_EQ(current(), "Row 6") << "in its place";
    area->forceActiveFocus();
    press(Qt::Key_Space);
    EXPECT_EQ(model->done(), Done{"press Row 6"}) << "before anything is drawn";
    model->setNames({u"Row 7"_s});
    EXPECT_EQ(current(), "Row 7");
    model->setNames({u"Row 7"_s, u"Row 8"_s, u"Row 9"_s});
    area->setCurrentRow(1);
    model->setNames({u"Row 7"_s, u"Row 9"_s});
    EXPECT_EQ(current(), "Row 9") << "in its place";
}

TEST_F(RowListTest, AMenuFollowsWhatItsRowOffersAndDoesNothingElse)
{
    show(4);
    click(pointOf(2), Qt::RightButton);
    EXPECT_EQ(area->menuRow(), 2);
    EXPECT_EQ(current(), "Row 0") << "the keyboard stays";
    model->offersMore = true;
    model->setRow(2, {.name = u"Row 2"_s, .height = 41});
    EXPECT_EQ(menu(), (Done{"Fire", "Rename", "Delete"}));
    model->offersMore = false;
    area->chooseInMenu(u"Fire"_s);
    EXPECT_EQ(model->done(), Done{}) << "no longer offered";
    press(Qt::Key_F10, Qt::ShiftModifier);
    area->openMenu(3, {});
    model->setNames({u"Row 0"_s});
    EXPECT_EQ(area->menuRow(), -1) << "its row is gone";
    area->chooseInMenu(u"Rename"_s);
    EXPECT_EQ(model->done(), Done{});
    area->openMenu(7, {});
    EXPECT_EQ(menu(), Done{});
}

TEST_F(RowListTest, ARowIsDraggedToAnotherPlace)
{
    show(5);
    struct Case {
        const char* name;
        int row;
        double y;
        Done done;
    };
    const Case cases[] = {
        {"down behind the next but one", 0, 150, {"move to 3: Row 0"}},
        {"to the end", 1, 390, {"move to 5: Row 1"}},
        {"to the top", 3, 2, {"move to 0: Row 3"}},
        {"before the row above", 3, 115, {"move to 2: Row 3"}},
        {"before itself", 3, 165, {}},
        {"behind itself", 2, 145, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        drag(pointOf(c.row), area->mapToScene({150, c.y}));
        EXPECT_EQ(model->done(), c.done);
        EXPECT_EQ(area->draggedRow(), -1);
    }
    area->beginDrag(2);
    area->dragTo({150, 12});
    EXPECT_EQ(area->dropRow(), 0);
    EXPECT_EQ(area->property("dropLine"), 5);
    model->setNames({u"Row 0"_s, u"Row 1"_s});
    EXPECT_EQ(area->draggedRow(), -1) << "it is gone";
    area->endDrag(true);
    EXPECT_EQ(model->done(), Done{});
}

TEST_F(RowListTest, ScreenReadersReadEveryRowInViewOrNot)
{
    auto rows = std::make_unique<TestRows>(100);
    rows->setRow(1, {.name = u"Row 1"_s, .isHead = true});
    show(std::move(rows));
    ASSERT_EQ(list()->childCount(), 100);
    EXPECT_EQ(nameOf(row(99)), "Row 99");
    EXPECT_EQ(row(99)->text(QAccessible::Description), u"40 high"_s);
    EXPECT_EQ(row(99)->role(), QAccessible::ListItem);
    EXPECT_TRUE(row(99)->state().offscreen);
    EXPECT_FALSE(row(2)->state().offscreen);
    EXPECT_EQ(row(99)->rect().top() - row(98)->rect().top(), 50) << "about where they would be";
    EXPECT_EQ(row(99)->parent(), list());
    EXPECT_EQ(list()->indexOfChild(row(99)), 99);
    EXPECT_EQ(row(100), nullptr);
    const QPoint point = area->mapToGlobal(area->rectOf(3).center()).toPoint();
    EXPECT_EQ(list()->childAt(point.x(), point.y()), row(3));
    EXPECT_EQ(list()->childAt(point.x() - 145, point.y()), nullptr) << "beside it";

    pressOn(row(98));
    act(row(97), u"Move Up"_s);
    act(row(97), u"no such action"_s);
    pressOn(row(1));
    EXPECT_EQ(model->done(), (Done{"press Row 98", "Move Up Row 97"}));
    EXPECT_EQ(row(97)->actionInterface()->actionNames(),
        (QStringList{u"Press"_s, u"Move Up"_s, u"Rename"_s, u"Delete"_s, u"SetFocus"_s}));
    EXPECT_EQ(row(1)->actionInterface()->actionNames(), QStringList{u"SetFocus"_s});
    act(row(99), QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(current(), "Row 99");
    EXPECT_TRUE(row(99)->state().focused);
    EXPECT_EQ(area->rectOf(99).bottom(), 330);
}

TEST_F(RowListTest, ScreenReadersHearWhatIsDifferent)
{
    show(4);
    area->forceActiveFocus();
    SurfaceReader<RowAreaAccessible> reader(*area);
    model->setRow(2, {.name = u"Row 2"_s, .height = 50});
    EXPECT_EQ(reader.heard(), Done{"description: Row 2"});
    model->setRow(2, {.name = u"Row 2"_s, .height = 50, .isSelected = true});
    EXPECT_EQ(reader.heard(), Done{"state: Row 2"});
    press(Qt::Key_Down);
    EXPECT_EQ(reader.heard(), Done{"focus: Row 1"});
    model->setNames({u"Row 1"_s});
    EXPECT_THAT(reader.heard(), testing::Contains("children: Things"));
    QAccessibleInterface* const child = reader.surface().child(0);
    window.setSource({});
    EXPECT_FALSE(reader.surface().isValid());
    EXPECT_EQ(nameOf(child), "");
    pressOn(child);
}

TEST_F(RowListTest, ButtonsOfARowShowForThePointerAndTheKeyboard)
{
    show(4);
    area->forceActiveFocus();
    const auto buttons = [this] { return items("GlassButton").size(); };
    draw();
    EXPECT_EQ(buttons(), 2) << "of the row that has the keyboard";
    hover(pointOf(2));
    EXPECT_EQ(buttons(), 4);
    click(centre(items("GlassButton").last()));
    EXPECT_EQ(model->done().size(), 1) << "the button's and not the row's";
}

TEST_F(RowListTest, SurvivesItsModel)
{
    show(4);
    area->openMenu(1, {});
    model.reset();
    EXPECT_EQ(area->rowCount(), 0);
    EXPECT_EQ(area->currentRow(), -1);
    area->click(0);
    area->act(0, u"Rename"_s);
    press(Qt::Key_Space);
    draw();
}

} // namespace

} // namespace corvane
