#include "support/ControllerTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

class MatrixControllerPanelsTest : public ControllerTest {
protected:
    MatrixControllerPanelsTest() { connectTo(matrix(8, 8)); }

    SubPanel save(const QString& name, const QList<qint64>& sources, const QList<qint64>& destinations)
    {
        SubPanel panel{QUuid::createUuid(), name, sources, destinations};
        controller->savePanel(panel);
        return panel;
    }

    [[nodiscard]] std::vector<qint64> shown(const QList<Port>& ports) const
    {
        std::vector<qint64> indices;
        for (const auto& port : ports)
            indices.push_back(port.index);
        return indices;
    }

    [[nodiscard]] std::vector<QString> names() const
    {
        std::vector<QString> result;
        for (const auto& panel : controller->panels())
            result.push_back(panel.name);
        return result;
    }
};

TEST_F(MatrixControllerPanelsTest, APanelShowsThoseOfItsPortsThatTheRouterHas)
{
    const auto panel = save(u"A"_s, {}, {5, 2, 9, 5});
    controller->setActivePanelID(panel.id);
    EXPECT_THAT(shown(controller->visibleDestinations()), ElementsAre(2, 5));
    EXPECT_THAT(controller->visibleSources(), IsEmpty());
    report(driverEvent::StateReplaced{matrix(10, 10)});
    EXPECT_THAT(shown(controller->visibleDestinations()), ElementsAre(2, 5, 9));
    report(driverEvent::StateReplaced{matrix(3, 3)});
    EXPECT_THAT(shown(controller->visibleDestinations()), ElementsAre(2));
    EXPECT_EQ(controller->activePanelID(), panel.id);
    controller->setActivePanelID(std::nullopt);
    EXPECT_THAT(shown(controller->visibleSources()), ElementsAre(0, 1, 2));
}

TEST_F(MatrixControllerPanelsTest, SelectingAPanelDropsWhatIsStagedAndWhatItDoesNotShow)
{
    const auto panel = save(u"A"_s, {1}, {1, 2});
    controller->setMultiSelectMode(true);
    for (const qint64 destination : {1, 2, 5})
        controller->toggleDestinationInGang(destination);
    controller->setPendingSource(3);
    SignalLog log(*controller);
    controller->setActivePanelID(panel.id);
    EXPECT_FALSE(controller->hasStaging());
    EXPECT_EQ(controller->selectedDestination(), std::nullopt);
    EXPECT_EQ(controller->selectedDestinations(), (QSet<qint64>{1, 2}));
    EXPECT_EQ(controller->selectedSource(), std::nullopt);
    EXPECT_THAT(log.taken(), ElementsAre("visible ports", "active panel", "changed"));

    controller->setPendingSource(1);
    EXPECT_THAT(log.taken(), ElementsAre("changed"));
    controller->setActivePanelID(panel.id);
    EXPECT_EQ(controller->pendingSource(), 1);
    EXPECT_THAT(log.taken(), IsEmpty());

    // A resync focuses the first destination, which this panel doesn't show.
    report(driverEvent::StateReplaced{matrix(9, 9)});
    EXPECT_EQ(controller->selectedDestination(), std::nullopt);
}

TEST_F(MatrixControllerPanelsTest, SelectingAllUnderAPanelMeansThePanel)
{
    const auto panel = save(u"A"_s, {}, {1, 2, 3});
    controller->setActivePanelID(panel.id);
    controller->setMultiSelectMode(true);
    report(driverEvent::LockChanged{3, true});
    controller->selectAllInGang();
    EXPECT_EQ(controller->selectedDestinations(), (QSet<qint64>{1, 2}));
    EXPECT_TRUE(controller->allGanged());
}

TEST_F(MatrixControllerPanelsTest, TheActivePanelIsRememberedWhileItExists)
{
    const auto panel = save(u"A"_s, {1}, {1, 2});
    controller->setActivePanelID(panel.id);
    controller = makeController();
    EXPECT_EQ(controller->activePanel(), panel);
    controller->setActivePanelID(std::nullopt);
    EXPECT_EQ(makeController()->activePanelID(), std::nullopt);
    controller->setActivePanelID(QUuid::createUuid());
    EXPECT_EQ(makeController()->activePanelID(), std::nullopt);
}

TEST_F(MatrixControllerPanelsTest, SavingTheActivePanelDropsWhatIsStagedAndSavingAnotherDoesNot)
{
    auto panel = save(u"A"_s, {1}, {1, 2});
    controller->setActivePanelID(panel.id);
    controller->setPendingDestination(2);
    controller->focusDestination(2);
    save(u"B"_s, {}, {});
    EXPECT_EQ(controller->pendingDestination(), 2);
    panel.destinationIndices = {1};
    SignalLog log(*controller);
    controller->savePanel(panel);
    EXPECT_FALSE(controller->hasStaging());
    EXPECT_EQ(controller->selectedDestination(), std::nullopt);
    EXPECT_THAT(shown(controller->visibleDestinations()), ElementsAre(1));
    EXPECT_THAT(log.taken(), ElementsAre("visible ports", "active panel", "changed"));
    EXPECT_THAT(names(), ElementsAre(u"A"_s, u"B"_s));
}

TEST_F(MatrixControllerPanelsTest, ADuplicateBringsThePanelsSalvosAlong)
{
    const auto panel = save(u"A"_s, {1}, {1, 2});
    controller->setActivePanelID(panel.id);
    controller->saveSalvo(u"One"_s, panel.id);
    controller->saveSalvo(u"Router"_s, {});
    controller->duplicatePanel(panel);
    ASSERT_EQ(controller->panels().size(), 2);
    const auto copy = controller->panels().last();
    EXPECT_NE(copy.id, panel.id);
    EXPECT_EQ(copy, (SubPanel{copy.id, u"A Copy"_s, {1}, {1, 2}}));
    EXPECT_EQ(controller->salvoCount(panel), 1);
    EXPECT_EQ(controller->salvoCount(copy), 1);
    ASSERT_EQ(controller->salvos().size(), 3);
    auto expected = controller->salvos().first();
    EXPECT_NE(controller->salvos().last().id, expected.id);
    expected.id = controller->salvos().last().id;
    expected.panelID = copy.id;
    EXPECT_EQ(controller->salvos().last(), expected);
    EXPECT_EQ(controller->activePanelID(), panel.id);
    EXPECT_EQ(makeController()->salvos(), controller->salvos());
}

TEST_F(MatrixControllerPanelsTest, ADeletedPanelTakesItsSalvosAlongAndShowsTheWholeRouter)
{
    const auto panel = save(u"A"_s, {1}, {1, 2});
    const auto other = save(u"B"_s, {2}, {3});
    controller->saveSalvo(u"One"_s, panel.id);
    controller->saveSalvo(u"Two"_s, other.id);
    controller->setActivePanelID(panel.id);
    controller->setPendingSource(1);
    controller->deletePanel(other);
    EXPECT_EQ(controller->activePanelID(), panel.id);
    EXPECT_EQ(controller->pendingSource(), 1);
    EXPECT_THAT(names(), ElementsAre(u"A"_s));
    ASSERT_EQ(controller->salvos().size(), 1);
    EXPECT_EQ(controller->salvos().first().name, u"One"_s);
    controller->deletePanel(panel);
    EXPECT_EQ(controller->activePanelID(), std::nullopt);
    EXPECT_EQ(panels.activePanelID(router.id), std::nullopt);
    EXPECT_THAT(controller->salvos(), IsEmpty());
    EXPECT_THAT(controller->panels(), IsEmpty());
    EXPECT_EQ(controller->visibleDestinations().size(), 8);
}

TEST_F(MatrixControllerPanelsTest, AReorderedListOfPanelsIsKept)
{
    for (const auto& name : {u"A"_s, u" B\n"_s, u"C"_s})
        save(name, {}, {});
    EXPECT_EQ(controller->newPanelDraft().name, u"Panel 4"_s);
    controller->movePanels({0}, 3);
    EXPECT_THAT(names(), ElementsAre(u"B"_s, u"C"_s, u"A"_s));
    controller = makeController();
    EXPECT_THAT(names(), ElementsAre(u"B"_s, u"C"_s, u"A"_s));
}

} // namespace

} // namespace corvane
