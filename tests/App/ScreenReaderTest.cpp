#include "WindowTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

/// The program as it is used by those who hear it.
class ScreenReaderTest : public WindowTest {
protected:
    [[nodiscard]] MatrixController& demo() const { return controller(u"Demo Router"_s); }

    const QString press = QAccessibleActionInterface::pressAction();
};

TEST_F(ScreenReaderTest, HearsWhichButtonsHaveNothingToDo)
{
    demo().setTakeMode(TakeMode::confirm);
    settle();
    auto* const take = find(QAccessible::Button, u"Take"_s);
    auto* const clear = find(QAccessible::Button, u"Clear staged route"_s);
    EXPECT_TRUE(take->state().disabled);
    EXPECT_TRUE(clear->state().disabled);
    EXPECT_FALSE(find(QAccessible::Button, u"Follow"_s)->state().disabled);
    act(take, press);

    demo().selectDestination(4);
    demo().setPendingSource(8);
    settle();
    EXPECT_FALSE(take->state().disabled);
    EXPECT_FALSE(clear->state().disabled);
    act(take, QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(focused(), take);
    act(take, press);
    EXPECT_EQ(demo().state().source(4, 0), 8);
    EXPECT_TRUE(take->state().disabled);
    EXPECT_TRUE(take->state().focused) << "it can be asked what it is";
}

TEST_F(ScreenReaderTest, FindsEachControlWhereItIs)
{
    for (auto* const control :
        {find(QAccessible::RadioButton, u"Take"_s), find(QAccessible::Button, u"Follow"_s)}) {
        auto* const parent = control->parent();
        ASSERT_NE(parent, nullptr);
        EXPECT_EQ(parent->child(parent->indexOfChild(control)), control);
        EXPECT_TRUE(parent->rect().contains(control->rect()));
        EXPECT_EQ(control->window(), window.get());
        EXPECT_FALSE(control->state().offscreen);
    }
}

TEST_F(ScreenReaderTest, RenamesAPort)
{
    demo().beginRename(PortKind::source, 0);
    settle();
    auto* const field = find(QAccessible::EditableText, u"Name"_s);
    ASSERT_NE(field, nullptr);
    EXPECT_TRUE(field->state().editable);
    EXPECT_TRUE(field->state().focused);
    EXPECT_EQ(field->text(QAccessible::Value), u"CAM 1"_s);
    const auto* const text = field->textInterface();
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->characterCount(), 5);
    EXPECT_EQ(text->text(0, 3), u"CAM"_s);
    EXPECT_EQ(text->selectionCount(), 1) << "so that typing replaces it";
    const auto second = text->characterRect(1);
    EXPECT_TRUE(field->rect().contains(second));
    EXPECT_EQ(text->offsetAtPoint(second.center()), 1);

    auto* const edited = field->editableTextInterface();
    ASSERT_NE(edited, nullptr);
    edited->replaceText(0, 99, u"Des"_s);
    edited->insertText(3, u"k 22"_s);
    edited->deleteText(5, 6);
    EXPECT_EQ(field->text(QAccessible::Value), u"Desk 2"_s);
    act(find(QAccessible::Button, u"Save"_s), press);
    EXPECT_EQ(demo().state().sources.constFirst().label, u"Desk 2"_s);
}

} // namespace

} // namespace corvane
