#include "support/ControllerTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

class MatrixControllerLabelsTest : public ControllerTest, public testing::WithParamInterface<PortKind> {
protected:
    MatrixControllerLabelsTest() { connectTo(matrix(4, 4)); }

    void reportName(qint64 index, const QString& name)
    {
        report(driverEvent::LabelChanged{GetParam(), index, name});
    }

    void rename(qint64 index, const QString& name) { controller->rename(GetParam(), index, name); }

    [[nodiscard]] bool isSource() const { return GetParam() == PortKind::source; }
    [[nodiscard]] QString label(qsizetype position) const
    {
        const auto& state = controller->state();
        return (isSource() ? state.sources : state.destinations).at(position).label;
    }
    [[nodiscard]] std::string setLabel(const std::string& rest) const
    {
        return (isSource() ? "setLabel source " : "setLabel destination ") + rest;
    }
};

INSTANTIATE_TEST_SUITE_P(, MatrixControllerLabelsTest,
    testing::Values(PortKind::source, PortKind::destination),
    [](const auto& test) { return rawValue(test.param).toStdString(); });

TEST_P(MatrixControllerLabelsTest, ACustomNameHidesTheDevicesNewestNameUntilItIsCleared)
{
    rename(3, u" Desk \n"_s);
    EXPECT_EQ(label(3), u"Desk"_s);
    reportName(3, u"CAM 4"_s);
    EXPECT_EQ(label(3), u"Desk"_s);
    rename(3, u"  "_s);
    EXPECT_EQ(label(3), u"CAM 4"_s);
    rename(2, u"Desk"_s);
    labels.removeConnection(router.id);
    controller->applyLabelOverrides();
    EXPECT_EQ(label(2), isSource() ? u"In 3"_s : u"Out 3"_s);
}

TEST_P(MatrixControllerLabelsTest, ARenameReachesTheDeviceOnlyWhileConnectedAndWithAName)
{
    // What a router says that can't rename makes no difference.
    driver().failWith(DriverError::unsupported(feature::renaming));
    rename(3, u" Cam X\n\nVIDEO OUTPUT ROUTING:\n3 9\u2028\u0001 "_s);
    EXPECT_THAT(told(), ElementsAre(setLabel("3 Cam X  VIDEO OUTPUT ROUTING: 3 9")));
    EXPECT_EQ(label(3), u"Cam X  VIDEO OUTPUT ROUTING: 3 9"_s);
    EXPECT_EQ(controller->lastError(), std::nullopt);
    rename(3, u" \t\n"_s);
    EXPECT_THAT(told(), IsEmpty());
    report(driverEvent::Disconnected{});
    rename(3, u"Later"_s);
    EXPECT_EQ(label(3), u"Later"_s);
    EXPECT_THAT(told(), IsEmpty());
    connectTo(matrix(4, 4));
    EXPECT_EQ(label(3), u"Later"_s);
    EXPECT_THAT(told(), IsEmpty());
}

TEST_P(MatrixControllerLabelsTest, ABatchOfNamesIsOneSave)
{
    int saves = 0;
    labels.onSaved([&](const QString&, const std::optional<QString>&) { ++saves; });
    SignalLog log(*controller);
    controller->renameAll({{{GetParam(), 1}, u"A"_s}, {{GetParam(), 2}, u" "_s}, {{GetParam(), 3}, u"C"_s}});
    EXPECT_EQ(saves, 1);
    EXPECT_THAT(told(), ElementsAre(setLabel("1 A"), setLabel("3 C")));
    EXPECT_THAT(log.taken(), ElementsAre("labels"));
    EXPECT_EQ(label(1) + label(3), u"AC"_s);
    EXPECT_EQ(LabelStore(folder.path()).byConnection(), labels.byConnection());
}

TEST_P(MatrixControllerLabelsTest, NobodySeesANewPictureWithoutTheCustomNames)
{
    labels.set(u"Desk"_s, GetParam(), 3, router.id);
    QString seen;
    QObject::connect(
        controller.get(), &MatrixController::stateReplaced, controller.get(), [&] { seen = label(3); });
    reportName(3, u"old"_s);
    auto state = matrix(5, 5);
    (isSource() ? state.sources : state.destinations)[3].label = u"new"_s;
    report(driverEvent::StateReplaced{state});
    EXPECT_EQ(seen, u"Desk"_s);
    // The device's own name was captured before it was replaced.
    labels.set({}, GetParam(), 3, router.id);
    controller->applyLabelOverrides();
    EXPECT_EQ(label(3), u"new"_s);
}

TEST_P(MatrixControllerLabelsTest, NamesFollowThePortsIndexWhereverItStands)
{
    auto state = matrix(3, 3);
    auto& ports = isSource() ? state.sources : state.destinations;
    ports[0].index = 2;
    ports[1].index = 70;
    ports[2].index = 0;
    connectTo(state);
    rename(70, u"Far"_s);
    reportName(2, u"Second"_s);
    reportName(0, u"Zeroth"_s);
    EXPECT_EQ(label(0), u"Second"_s);
    EXPECT_EQ(label(1), u"Far"_s);
    EXPECT_EQ(label(2), u"Zeroth"_s);
}

TEST_P(MatrixControllerLabelsTest, APanelShowsTheSameNames)
{
    const SubPanel panel{QUuid::createUuid(), u"A"_s, {1, 3}, {1, 3}};
    controller->savePanel(panel);
    controller->setActivePanelID(panel.id);
    const auto shown = [&](qsizetype position) {
        return (isSource() ? controller->visibleSources() : controller->visibleDestinations())
            .at(position)
            .label;
    };
    reportName(3, u"Fresh"_s);
    EXPECT_EQ(shown(1), u"Fresh"_s);
    rename(1, u"Desk"_s);
    EXPECT_EQ(shown(0), u"Desk"_s);
}

TEST_P(MatrixControllerLabelsTest, NamesThatADeviceReportsTogetherAreSignalledOnce)
{
    SignalLog log(*controller);
    for (const auto& [index, name] : {std::pair(1, u"A"_s), {2, u"x"_s}, {2, u"B"_s}})
        driver().report(driverEvent::LabelChanged{GetParam(), index, name});
    queue.runReady();
    EXPECT_THAT(log.taken(), ElementsAre("labels"));
    EXPECT_EQ(label(1) + label(2), u"AB"_s);
    controller->applyLabelOverrides();
    rename(1, u"A"_s);
    reportName(1, u"hidden"_s);
    EXPECT_THAT(log.taken(), IsEmpty());
}

TEST_P(MatrixControllerLabelsTest, ANameIsCutToWhatIsKept)
{
    const QString endless(100'000, u'x');
    rename(0, endless);
    reportName(1, endless);
    EXPECT_EQ(label(0).size(), 1024);
    EXPECT_EQ(label(1).size(), 1024);
    auto state = matrix(4, 4);
    (isSource() ? state.sources : state.destinations)[2].label = endless;
    report(driverEvent::StateReplaced{state});
    EXPECT_EQ(label(2).size(), 1024);
}

TEST_P(MatrixControllerLabelsTest, AnInlineRenameIsKeptWhenCommittedAndNotWhenLeft)
{
    for (const qint64 index : {4, -1}) {
        controller->setRenameDraft(u"left over"_s);
        controller->beginRename(GetParam(), index);
        EXPECT_EQ(controller->renameDraft(), u""_s);
        EXPECT_EQ(controller->renameTarget(), (PortRef{GetParam(), index}));
    }
    controller->beginRename(GetParam(), 2);
    EXPECT_EQ(controller->renameDraft(), label(2));
    controller->setRenameDraft(u"Desk"_s);
    controller->setRenameTarget(std::nullopt);
    controller->commitRename();
    EXPECT_THAT(told(), IsEmpty());
    controller->beginRename(GetParam(), 2);
    controller->setRenameDraft(u"Desk"_s);
    controller->commitRename();
    EXPECT_THAT(told(), ElementsAre(setLabel("2 Desk")));
    EXPECT_EQ(controller->renameTarget(), std::nullopt);
    EXPECT_EQ(label(2), u"Desk"_s);
}

TEST_P(MatrixControllerLabelsTest, ARenameBegunUponTheLastOneStaysOpen)
{
    controller->beginRename(GetParam(), 2);
    controller->setRenameDraft(u"Desk"_s);
    QObject::connect(controller.get(), &MatrixController::labelsChanged, controller.get(),
        [&] { controller->beginRename(GetParam(), 3); });
    controller->commitRename();
    EXPECT_THAT(told(), ElementsAre(setLabel("2 Desk")));
    EXPECT_EQ(label(2), u"Desk"_s);
    EXPECT_EQ(controller->renameTarget(), (PortRef{GetParam(), 3}));
    EXPECT_EQ(controller->renameDraft(), label(3));
}

} // namespace

} // namespace corvane
