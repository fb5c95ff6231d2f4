#include "Views/Workspace/RenamePromptModel.h"
#include "ViewModelTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

class RenamePromptModelTest : public ViewModelTest<RenamePromptModel> {
protected:
    void SetUp() override
    {
        ViewModelTest::SetUp();
        connectTo(matrix(4, 4));
    }
};

TEST_F(RenamePromptModelTest, AsksForThePortThatIsBeingRenamed)
{
    EXPECT_FALSE(model.isShown());
    controller->beginRename(PortKind::source, 2);
    EXPECT_TRUE(model.isShown());
    EXPECT_EQ(model.renameTitle(), u"Rename Source"_s);
    EXPECT_EQ(model.renameDraft(), u"In 3"_s);
    controller->beginRename(PortKind::destination, 0);
    EXPECT_EQ(model.renameTitle(), u"Rename Destination"_s);
    EXPECT_EQ(model.renameDraft(), u"Out 1"_s);
}

TEST_F(RenamePromptModelTest, KeepsTheNameAndCloses)
{
    controller->beginRename(PortKind::source, 2);
    model.setRenameDraft(u"Camera"_s);
    model.commitRename();
    EXPECT_FALSE(model.isShown());
    EXPECT_EQ(controller->state().sources.at(2).label, u"Camera"_s);
}

TEST_F(RenamePromptModelTest, CancelKeepsTheOldName)
{
    controller->beginRename(PortKind::source, 2);
    model.setRenameDraft(u"Camera"_s);
    model.cancel();
    EXPECT_FALSE(model.isShown());
    EXPECT_EQ(controller->state().sources.at(2).label, u"In 3"_s);
}

} // namespace

} // namespace corvane
