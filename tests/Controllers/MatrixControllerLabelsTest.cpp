#include "support/ControllerTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

class MatrixControllerLabelsTest : public ControllerTest {
protected:
    MatrixControllerLabelsTest() { connectTo(matrix(4, 4)); }

    void reportSourceName(qint64 index, const QString& name)
    {
        report(driverEvent::LabelChanged{PortKind::source, index, name});
    }

    [[nodiscard]] QString source(qsizetype position) const
    {
        return controller->state().sources.at(position).label;
    }
};

TEST_F(MatrixControllerLabelsTest, ACustomNameHidesTheDevicesNewestNameUntilItIsCleared)
{
    controller->rename(PortKind::source, 3, u" Desk \n"_s);
    EXPECT_EQ(source(3), u"Desk"_s);
    reportSourceName(3, u"CAM 4"_s);
    EXPECT_EQ(source(3), u"Desk"_s);
    controller->rename(PortKind::source, 3, u"  "_s);
    EXPECT_EQ(source(3), u"CAM 4"_s);
}

TEST_F(MatrixControllerLabelsTest, ARenameReachesTheDeviceOnlyWhileConnectedAndWithAName)
{
    controller->rename(PortKind::source, 3, u" Desk "_s);
    EXPECT_THAT(told(), ElementsAre("setLabel source 3 Desk"));
    controller->rename(PortKind::source, 3, u" \t\n"_s);
    EXPECT_THAT(told(), IsEmpty());
    report(driverEvent::Disconnected{});
    controller->rename(PortKind::source, 3, u"Later"_s);
    EXPECT_EQ(source(3), u"Later"_s);
    EXPECT_THAT(told(), IsEmpty());
    connectTo(matrix(4, 4));
    EXPECT_EQ(source(3), u"Later"_s);
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(MatrixControllerLabelsTest, ARouterThatCannotRenameMakesNoDifference)
{
    driver().failure = DriverError::unsupported(feature::renaming);
    controller->rename(PortKind::source, 3, u"Desk"_s);
    EXPECT_THAT(told(), ElementsAre("setLabel source 3 Desk"));
    EXPECT_EQ(source(3), u"Desk"_s);
    EXPECT_EQ(controller->lastError(), std::nullopt);
}

TEST_F(MatrixControllerLabelsTest, NobodySeesANewPictureWithoutTheCustomNames)
{
    labels.set(u"Desk"_s, PortKind::source, 3, router.id);
    QString seen;
    QObject::connect(controller.get(), &MatrixController::stateReplaced, controller.get(),
        [&] { seen = controller->state().sources.at(3).label; });
    report(driverEvent::StateReplaced{matrix(5, 5)});
    EXPECT_EQ(seen, u"Desk"_s);
    // The device's own name was captured before it was covered.
    labels.set({}, PortKind::source, 3, router.id);
    controller->applyLabelOverrides();
    EXPECT_EQ(source(3), u"In 4"_s);
}

TEST_F(MatrixControllerLabelsTest, NamesFollowThePortsIndexWhereverItStands)
{
    auto state = matrix(3, 1);
    state.sources[0].index = 2;
    state.sources[1].index = 70;
    state.sources[2].index = 0;
    connectTo(state);
    controller->rename(PortKind::source, 70, u"Far"_s);
    reportSourceName(2, u"Second"_s);
    reportSourceName(0, u"Zeroth"_s);
    reportSourceName(1, u"nobody's"_s);
    reportSourceName(-1, u"nobody's"_s);
    EXPECT_EQ(source(0), u"Second"_s);
    EXPECT_EQ(source(1), u"Far"_s);
    EXPECT_EQ(source(2), u"Zeroth"_s);
}

TEST_F(MatrixControllerLabelsTest, APanelShowsTheSameNames)
{
    SubPanel panel;
    panel.sourceIndices = {1, 3};
    controller->savePanel(panel);
    controller->setActivePanelID(panel.id);
    reportSourceName(3, u"Fresh"_s);
    EXPECT_EQ(controller->visibleSources().at(1).label, u"Fresh"_s);
    controller->rename(PortKind::source, 1, u"Desk"_s);
    EXPECT_EQ(controller->visibleSources().at(0).label, u"Desk"_s);
}

TEST_F(MatrixControllerLabelsTest, OnlyANameThatIsReallyDifferentIsTold)
{
    Telling told(*controller, &MatrixController::labelsChanged);
    reportSourceName(3, u"In 4"_s);
    controller->applyLabelOverrides();
    EXPECT_EQ(told.count(), 0);
    reportSourceName(3, u"CAM 4"_s);
    EXPECT_EQ(told.count(), 1);
    controller->rename(PortKind::source, 3, u"CAM 4"_s);
    EXPECT_EQ(told.count(), 0);
    reportSourceName(3, u"hidden"_s);
    EXPECT_EQ(told.count(), 0);
}

TEST_F(MatrixControllerLabelsTest, AnInlineRenameIsKeptWhenCommittedAndNotWhenLeft)
{
    controller->beginRename(PortKind::source, 4);
    EXPECT_EQ(controller->renameDraft(), u""_s);
    EXPECT_EQ(controller->renameTarget(), (PortRef{PortKind::source, 4}));
    controller->beginRename(PortKind::destination, 2);
    EXPECT_EQ(controller->renameDraft(), u"Out 3"_s);
    controller->beginRename(PortKind::source, 2);
    controller->setRenameDraft(u"Desk"_s);
    controller->setRenameTarget(std::nullopt);
    controller->commitRename();
    EXPECT_THAT(told(), IsEmpty());
    controller->beginRename(PortKind::source, 2);
    controller->setRenameDraft(u"Desk"_s);
    controller->commitRename();
    EXPECT_THAT(told(), ElementsAre("setLabel source 2 Desk"));
    EXPECT_EQ(controller->renameTarget(), std::nullopt);
    EXPECT_EQ(source(2), u"Desk"_s);
}

TEST_F(MatrixControllerLabelsTest, ARenameBegunUponTheLastOneStaysOpen)
{
    controller->beginRename(PortKind::source, 2);
    controller->setRenameDraft(u"Desk"_s);
    QObject::connect(controller.get(), &MatrixController::labelsChanged, controller.get(),
        [&] { controller->beginRename(PortKind::source, 3); });
    controller->commitRename();
    EXPECT_THAT(told(), ElementsAre("setLabel source 2 Desk"));
    EXPECT_EQ(source(2), u"Desk"_s);
    EXPECT_EQ(controller->renameTarget(), (PortRef{PortKind::source, 3}));
    EXPECT_EQ(controller->renameDraft(), u"In 4"_s);
}

} // namespace

} // namespace corvane
