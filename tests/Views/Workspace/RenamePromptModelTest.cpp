#include "Views/Workspace/RenamePromptModel.h"
#include "ViewModelTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

using RenamePromptModelTest = ViewModelTest<RenamePromptModel>;

TEST_F(RenamePromptModelTest, AsksForThePortThatIsBeingRenamedAndKeepsItsNameOnlyWhenToldTo)
{
    struct Case {
        PortKind kind;
        QString title;
        QString draft;
        void (RenamePromptModel::*answer)();
        QString name;
    };
    const Case cases[] = {
        {PortKind::source, u"Rename Source"_s, u"In 3"_s, &RenamePromptModel::cancel, u"In 3"_s},
        {PortKind::source, u"Rename Source"_s, u"In 3"_s, &RenamePromptModel::commitRename, u"Camera"_s},
        {PortKind::destination, u"Rename Destination"_s, u"Out 3"_s, &RenamePromptModel::commitRename,
            u"Camera"_s},
    };
    connectTo(matrix(4, 4));
    for (const auto& c : cases) {
        controller->beginRename(c.kind, 2);
        EXPECT_TRUE(model.isShown());
        EXPECT_EQ(model.renameTitle(), c.title);
        EXPECT_EQ(model.renameDraft(), c.draft);
        model.setRenameDraft(u"Camera"_s);
        (model.*c.answer)();
        EXPECT_FALSE(model.isShown());
        const auto& state = controller->state();
        const auto& ports = c.kind == PortKind::source ? state.sources : state.destinations;
        EXPECT_EQ(ports.at(2).label, c.name);
    }
}

} // namespace

} // namespace corvane
