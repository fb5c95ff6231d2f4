#include "support/ControllerTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

class MatrixControllerSalvosTest : public ControllerTest {
protected:
    MatrixControllerSalvosTest()
    {
        connectTo(matrix(4, 4, 2));
        panel.name = u"Studio"_s;
        panel.destinationIndices = {1, 2};
        controller->savePanel(panel);
    }

    [[nodiscard]] std::vector<QString> names(const QList<Salvo>& list) const
    {
        std::vector<QString> result;
        for (const auto& salvo : list)
            result.push_back(salvo.name);
        return result;
    }

    [[nodiscard]] const Salvo& saved(qsizetype position) const { return controller->salvos().at(position); }

    SubPanel panel;
};

TEST_F(MatrixControllerSalvosTest, SavingUnderANameInUseUpdatesThatSalvo)
{
    controller->saveSalvo(u" Morning\n"_s, {});
    const auto first = saved(0);
    EXPECT_EQ(first.name, u"Morning"_s);
    EXPECT_EQ(first.routes.size(), 8);
    EXPECT_TRUE(first.savedAt.has_value());
    report(driverEvent::RouteChanged{0, 0, 3});
    controller->saveSalvo(u"Morning"_s, {});
    ASSERT_EQ(controller->salvos().size(), 1);
    EXPECT_EQ(saved(0).id, first.id);
    EXPECT_EQ(saved(0).routes.first(), (Route{0, 0, 3}));
    controller->saveSalvo(u"morning"_s, {});
    EXPECT_EQ(controller->salvos().size(), 2);
    const auto before = saved(0);
    EXPECT_TRUE(controller->renameSalvo(before, u"At\r8"_s));
    EXPECT_EQ(saved(0).name, u"At 8"_s);
    controller->saveSalvo(u" \n"_s, {});
    EXPECT_EQ(controller->salvos().size(), 2);
    EXPECT_EQ(controller->lastError(), std::nullopt);
}

TEST_F(MatrixControllerSalvosTest, APanelsSalvoCoversThePanelsDestinations)
{
    controller->saveSalvo(u"A"_s, panel.id);
    EXPECT_EQ(saved(0).panelID, panel.id);
    EXPECT_EQ(saved(0).routes, (QList<Route>{{0, 1, 1}, {0, 2, 2}, {1, 1, 1}, {1, 2, 2}}));
    controller->saveSalvo(u"B"_s, QUuid::createUuid());
    EXPECT_EQ(saved(1).panelID, std::nullopt);
    EXPECT_EQ(saved(1).routes.size(), 8);
}

TEST_F(MatrixControllerSalvosTest, UpdatingCapturesAnewAndGrowsToTheRouterWhenThePanelIsGone)
{
    Salvo before;
    before.name = u"A"_s;
    before.savedAt = Timestamp{1};
    before.panelID = panel.id;
    salvos.add(before, router.id);
    report(driverEvent::RouteChanged{0, 1, 3});
    const auto now = Timestamp::now();
    controller->updateSalvo(before);
    EXPECT_EQ(saved(0).id, before.id);
    EXPECT_EQ(saved(0).routes, (QList<Route>{{0, 1, 3}, {0, 2, 2}, {1, 1, 1}, {1, 2, 2}}));
    EXPECT_GE(saved(0).savedAt->seconds, now.seconds);
    auto orphan = before;
    orphan.panelID = QUuid::createUuid();
    controller->updateSalvo(orphan);
    EXPECT_EQ(saved(0).routes.size(), 8);
}

TEST_F(MatrixControllerSalvosTest, NothingToCaptureIsTold)
{
    controller->saveSalvo(u"A"_s, panel.id);
    const auto before = saved(0);
    report(driverEvent::StateReplaced{matrix(1, 1)});
    controller->saveSalvo(u"B"_s, panel.id);
    EXPECT_EQ(lastError(), u"Nothing to capture — none of this panel's destinations exist on this router."_s);
    controller->updateSalvo(before);
    EXPECT_EQ(lastError(), u"Nothing to capture — none of this salvo's destinations exist on this router."_s);
    EXPECT_EQ(controller->salvos(), QList{before});
}

TEST_F(MatrixControllerSalvosTest, ANameIsTakenInAnyCaseWithinItsScope)
{
    controller->saveSalvo(u"Morning"_s, {});
    controller->saveSalvo(u"Évening"_s, {});
    controller->saveSalvo(u"Studio"_s, panel.id);
    struct Case {
        const char* name;
        qsizetype renamed;
        QString to;
        bool isAllowed;
    };
    const Case cases[] = {
        {"blank", 0, u" \n"_s, false},
        {"another's, in another case", 0, u" éVENING "_s, false},
        {"its own, in another case", 0, u"MORNING"_s, true},
        {"another scope's", 0, u"studio"_s, true},
        {"the panel's sees no router's", 2, u"Évening"_s, true},
        {"fresh, trimmed", 1, u" Night "_s, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const auto before = saved(c.renamed);
        EXPECT_EQ(controller->renameSalvo(before, c.to), c.isAllowed);
        EXPECT_EQ(saved(c.renamed).name, c.isAllowed ? c.to.trimmed() : before.name);
    }
}

TEST_F(MatrixControllerSalvosTest, AFireIsOneCommandThatReassertsAllThatApplies)
{
    Salvo salvo;
    salvo.routes = {{1, 2, 0}, {0, 0, 0}, {0, 3, 1}, {5, 0, 0}, {0, 9, 0}};
    report(driverEvent::LockChanged{3, true});
    controller->fireSalvo(salvo);
    EXPECT_EQ(controller->state().source(2, 1), 0);
    EXPECT_EQ(controller->state().source(3, 0), 3);
    EXPECT_THAT(told(), ElementsAre("takeAll 1:2<0 0:0<0"));
    EXPECT_EQ(controller->lastError(), std::nullopt);
}

TEST_F(MatrixControllerSalvosTest, AFireOfNothingThatAppliesIsTold)
{
    Salvo salvo;
    salvo.name = u"Old %1"_s;
    salvo.routes = {{7, 0, 0}};
    controller->fireSalvo(salvo);
    EXPECT_EQ(lastError(), u"\"Old %1\" has no routes that apply to this router."_s);
    EXPECT_THAT(told(), IsEmpty());
    EXPECT_EQ(controller->diff(salvo).missing, salvo.routes);
}

TEST_F(MatrixControllerSalvosTest, EachPanelShowsItsOwnSalvosAndTheRouterThoseOfNoPanel)
{
    controller->saveSalvo(u"Router"_s, {});
    controller->saveSalvo(u"Panel"_s, panel.id);
    Salvo orphan;
    orphan.name = u"Orphan"_s;
    orphan.routes = {{0, 0, 0}};
    orphan.panelID = QUuid::createUuid();
    salvos.add(orphan, router.id);
    controller = makeController();
    EXPECT_THAT(names(controller->visibleSalvos()), ElementsAre(u"Router"_s, u"Orphan"_s));
    EXPECT_EQ(controller->salvoCount(panel), 1);
    controller->setActivePanelID(panel.id);
    EXPECT_THAT(names(controller->visibleSalvos()), ElementsAre(u"Panel"_s));
    EXPECT_THAT(names(controller->fullRouterSalvos()), ElementsAre(u"Router"_s, u"Orphan"_s));
    controller->setActivePanelID(orphan.panelID);
    EXPECT_THAT(controller->visibleSalvos(), IsEmpty());
    EXPECT_FALSE(controller->showsSalvoStrip());
}

TEST_F(MatrixControllerSalvosTest, TheStripHidesOnlyWhereThereIsNeitherAPanelNorASalvo)
{
    EXPECT_FALSE(controller->showsSalvoStrip());
    controller->setActivePanelID(panel.id);
    EXPECT_TRUE(controller->showsSalvoStrip());
    controller->setActivePanelID(std::nullopt);
    controller->saveSalvo(u"A"_s, {});
    EXPECT_TRUE(controller->showsSalvoStrip());
    controller->deleteSalvo(saved(0));
    EXPECT_FALSE(controller->showsSalvoStrip());
}

} // namespace

} // namespace corvane
