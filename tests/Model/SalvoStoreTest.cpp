#include "Model/SalvoStore.h"
#include "support/Files.h"

#include <gtest/gtest.h>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

const QUuid router = QUuid::fromString(u"{7A1F0C52-0F6B-4F9E-9C55-1C0E51B1D0AA}");
const QUuid panelA = QUuid::createUuid();
const QUuid panelB = QUuid::createUuid();

Salvo salvo(const QString& name, std::optional<QUuid> panelID = std::nullopt)
{
    Salvo salvo;
    salvo.name = name;
    salvo.routes = {{0, 3, 1}};
    salvo.savedAt = Timestamp{784900000.5};
    salvo.panelID = panelID;
    return salvo;
}

class SalvoStoreTest : public testing::Test {
protected:
    [[nodiscard]] QByteArray file() const { return readFile(m_folder.path(u"salvos.json"_s)); }
    [[nodiscard]] QList<Salvo> salvos() const { return m_store.byConnection().value(idText(router)); }
    void spoilFile() const { writeFile(m_folder.path(u"salvos.json"_s), "overwritten"); }
    [[nodiscard]] bool wasSaved() const { return file() != "overwritten"; }

    void TearDown() override
    {
        // Whatever was done is what the next start finds.
        if (wasSaved()) {
            EXPECT_EQ(SalvoStore(m_folder.path()).byConnection(), m_store.byConnection());
        }
    }

    TemporaryFolder m_folder;
    SalvoStore m_store{m_folder.path()};
};

TEST_F(SalvoStoreTest, WritesTheSalvosOfEachRouterInOrder)
{
    auto morning = salvo(u"Morning"_s);
    morning.id = QUuid::fromString(u"{0D9B7F1C-52E8-4C0B-8E0A-57A1D2E1C3F4}");
    auto evening = morning;
    evening.name = u"Evening"_s;
    evening.savedAt.reset();
    evening.routes.clear();
    m_store.add(morning, router);
    m_store.add(evening, router);
    EXPECT_EQ(file(),
        R"({"7A1F0C52-0F6B-4F9E-9C55-1C0E51B1D0AA":[{"id":"0D9B7F1C-52E8-4C0B-8E0A-57A1D2E1C3F4","name":"Morning",)"
        R"("routes":[{"level":0,"destination":3,"source":1}],"savedAt":784900000.5},)"
        R"({"id":"0D9B7F1C-52E8-4C0B-8E0A-57A1D2E1C3F4","name":"Evening","routes":[]}]})");
}

TEST_F(SalvoStoreTest, GivesANamesakeInTheSameScopeTheNewSnapshotAndNothingElse)
{
    const auto first = salvo(u"Morning"_s, panelA);
    m_store.add(first, router);
    m_store.add(salvo(u"Evening"_s, panelA), router);
    auto again = salvo(u"Morning"_s, panelA);
    again.routes = {{0, 1, 2}, {1, 1, 2}};
    again.savedAt.reset();
    m_store.add(again, router);
    auto expected = again;
    expected.id = first.id;
    ASSERT_EQ(salvos().size(), 2);
    EXPECT_EQ(salvos().front(), expected);
}

TEST_F(SalvoStoreTest, TellsScopesAndCaseApart)
{
    const QList added{salvo(u"Morning"_s), salvo(u"Morning"_s, panelA), salvo(u"Morning"_s, panelB),
        salvo(u"morning"_s), salvo(u"Morning "_s)};
    for (const auto& each : added)
        m_store.add(each, router);
    EXPECT_EQ(salvos(), added);
}

TEST_F(SalvoStoreTest, AddsSeveralAsIfOneByOne)
{
    auto again = salvo(u"a"_s);
    again.routes.clear();
    m_store.addAll({salvo(u"a"_s), salvo(u"b"_s), again}, router);
    ASSERT_EQ(salvos().size(), 2);
    EXPECT_TRUE(salvos().front().routes.isEmpty());
    spoilFile();
    m_store.addAll({}, router);
    EXPECT_FALSE(wasSaved());
}

TEST_F(SalvoStoreTest, ChangesOneSalvoByItsId)
{
    const QList added{salvo(u"a"_s), salvo(u"b"_s), salvo(u"c"_s)};
    for (const auto& each : added)
        m_store.add(each, router);
    auto expected = added;
    expected[1].routes = {{2, 2, 2}};
    expected[1].savedAt = Timestamp{1.25};
    // The store takes any name, even one in use.
    expected[2].name = u" a"_s;
    m_store.update(added[1].id, expected[1].routes, Timestamp{1.25}, router);
    m_store.rename(added[2].id, u" a"_s, router);
    EXPECT_EQ(salvos(), expected);
}

TEST_F(SalvoStoreTest, WritesNothingForAnUnknownIdUnlessItIsToBeRemoved)
{
    m_store.add(salvo(u"a"_s), router);
    spoilFile();
    for (const auto& connection : {router, QUuid::createUuid()}) {
        m_store.update(QUuid::createUuid(), {}, Timestamp{0}, connection);
        m_store.rename(QUuid::createUuid(), u"x"_s, connection);
    }
    EXPECT_FALSE(wasSaved());
    for (const auto& connection : {router, QUuid::createUuid()}) {
        spoilFile();
        m_store.remove(QUuid::createUuid(), connection);
        EXPECT_TRUE(wasSaved());
        spoilFile();
        m_store.removeAll(panelA, connection);
        EXPECT_TRUE(wasSaved());
    }
    EXPECT_EQ(salvos().size(), 1);
}

TEST_F(SalvoStoreTest, RemovesOneSalvoAndTheRouterWithItsLast)
{
    const QList added{salvo(u"a"_s), salvo(u"b"_s)};
    for (const auto& each : added)
        m_store.add(each, router);
    m_store.remove(added[0].id, router);
    EXPECT_EQ(salvos(), QList{added[1]});
    m_store.remove(added[1].id, router);
    EXPECT_EQ(file(), "{}");
}

TEST_F(SalvoStoreTest, RemovesThePanelsSalvosAndLeavesTheOthers)
{
    const QList added{salvo(u"1"_s, panelA), salvo(u"2"_s), salvo(u"3"_s, panelB), salvo(u"4"_s, panelA)};
    for (const auto& each : added)
        m_store.add(each, router);
    m_store.removeAll(panelA, router);
    EXPECT_EQ(salvos(), (QList{added[1], added[2]}));
}

} // namespace

} // namespace corvane
