#include "Model/PanelStore.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

const QUuid router = QUuid::fromString(u"{7A1F0C52-0F6B-4F9E-9C55-1C0E51B1D0AA}");
const QUuid otherRouter = QUuid::createUuid();

SubPanel panel(const QString& name)
{
    return {QUuid::createUuid(), name, {0}, {1}};
}

QStringList names(const QList<SubPanel>& panels)
{
    QStringList names;
    for (const auto& each : panels)
        names.append(each.name);
    return names;
}

class PanelStoreTest : public testing::Test {
protected:
    void SetUp() override
    {
        for (const auto& each : {m_a, m_b, m_c})
            m_store.upsert(each, router);
    }

    void TearDown() override
    {
        // Whatever was done is what the next start finds.
        const PanelStore reloaded(m_folder.path());
        EXPECT_EQ(reloaded.panels(router), m_store.panels(router));
        EXPECT_EQ(reloaded.activePanelID(router), m_store.activePanelID(router));
    }

    [[nodiscard]] QByteArray file() const { return readFile(m_folder.path(u"panels.json"_s)); }
    [[nodiscard]] QStringList panelNames() const { return names(m_store.panels(router)); }

    TemporaryFolder m_folder;
    PanelStore m_store{m_folder.path()};
    const SubPanel m_a = panel(u"a"_s);
    const SubPanel m_b = panel(u"b"_s);
    const SubPanel m_c = panel(u"c"_s);
};

TEST_F(PanelStoreTest, ReplacesAPanelInItsPlaceAndAppendsANewOne)
{
    auto changed = m_b;
    changed.name = u"B"_s;
    changed.sourceIndices = {9};
    m_store.upsert(changed, router);
    EXPECT_EQ(m_store.panels(router), (QList{m_a, changed, m_c}));
    EXPECT_TRUE(m_store.panels(otherRouter).isEmpty());
}

TEST_F(PanelStoreTest, SortsIndicesAndDropsRepeatsOnlyOnTheWayOut)
{
    const QUuid id = QUuid::fromString(u"{51C6C6F2-8A3D-4B52-B1AF-0C3A7D0E9E11}");
    PanelStore store(m_folder.path(u"own"_s));
    store.upsert({id, u"Studio A"_s, {3, 1, 3}, {10, 9, 10, 2}}, router);
    EXPECT_EQ(store.panels(router), (QList<SubPanel>{{id, u"Studio A"_s, {1, 3}, {2, 9, 10}}}));
    EXPECT_EQ(readFile(m_folder.path(u"own/panels.json"_s)),
        R"({"panels":{"7A1F0C52-0F6B-4F9E-9C55-1C0E51B1D0AA":[{"id":"51C6C6F2-8A3D-4B52-B1AF-0C3A7D0E9E11",)"
        R"("name":"Studio A","sourceIndices":[3,1,3],"destinationIndices":[10,9,10,2]}]},"active":{}})");
}

TEST_F(PanelStoreTest, ForgetsTheActivePanelWithItsPanelAndWithNoOther)
{
    m_store.setActivePanelID(m_b.id, router);
    m_store.setActivePanelID(m_b.id, otherRouter);
    m_store.remove(m_a.id, router);
    EXPECT_EQ(m_store.activePanelID(router), m_b.id);
    m_store.remove(m_b.id, router);
    EXPECT_EQ(m_store.activePanelID(router), std::nullopt);
    EXPECT_EQ(m_store.activePanelID(otherRouter), m_b.id);
    EXPECT_EQ(panelNames(), QStringList(u"c"_s));
}

TEST_F(PanelStoreTest, TakesARouterOutOfTheFileWithItsLastPanel)
{
    for (const auto& each : {m_a, m_b, m_c})
        m_store.remove(each.id, router);
    EXPECT_EQ(file(), R"({"panels":{},"active":{}})");
}

TEST_F(PanelStoreTest, SavesAlsoWhenThereWasNothingToRemoveOrReorder)
{
    const auto before = file();
    writeFile(m_folder.path(u"panels.json"_s), "overwritten");
    m_store.remove(QUuid::createUuid(), router);
    EXPECT_EQ(file(), before);
    writeFile(m_folder.path(u"panels.json"_s), "overwritten");
    m_store.reorder(otherRouter, [](QList<SubPanel>& panels) { panels.append(SubPanel()); });
    EXPECT_EQ(file(), before);
}

TEST_F(PanelStoreTest, KeepsTheOrderThatTheOperatorGives)
{
    m_store.reorder(router, [](QList<SubPanel>& panels) { std::ranges::reverse(panels); });
    EXPECT_EQ(panelNames(), (QStringList{u"c"_s, u"b"_s, u"a"_s}));
}

TEST_F(PanelStoreTest, ClearsTheActivePanelWhenToldSo)
{
    m_store.setActivePanelID(m_a.id, router);
    EXPECT_EQ(PanelStore(m_folder.path()).activePanelID(router), m_a.id);
    m_store.setActivePanelID(std::nullopt, router);
    EXPECT_EQ(m_store.activePanelID(router), std::nullopt);
}

} // namespace

} // namespace corvane
