#include "Model/LabelStore.h"
#include "Model/PanelStore.h"
#include "Model/SalvoStore.h"
#include "support/Files.h"
#include "support/SpoiltFiles.h"

#include <gmock/gmock.h>

#include <QDir>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

template <typename Store>
struct About;

template <>
struct About<LabelStore> {
    static constexpr auto name = "LabelStore";
    static constexpr auto file = "labels.json";
    static constexpr auto aside = "to labels.json.corrupt";
    static constexpr auto empty = "{}";
    static constexpr auto valid =
        R"({"7A1F0C52-0F6B-4F9E-9C55-1C0E51B1D0AA":{"sources":{"0":"CAM 1","7":"Ä \"x\""},"destinations":{"3":"PGM"}},)"
        R"("0D9B7F1C-52E8-4C0B-8E0A-57A1D2E1C3F4":{"sources":{},"destinations":{"12":"MON"}}})";
    static void put(LabelStore& store, const QUuid& router)
    {
        store.set(u"a"_s, PortKind::source, 1, router);
    }
    static bool has(const LabelStore& store, const QUuid& router)
    {
        return store.byConnection().contains(idText(router));
    }
};

template <>
struct About<PanelStore> {
    static constexpr auto name = "PanelStore";
    static constexpr auto file = "panels.json";
    static constexpr auto aside = "aside";
    static constexpr auto empty = R"({"panels":{},"active":{}})";
    static constexpr auto valid =
        R"({"panels":{"7A1F0C52-0F6B-4F9E-9C55-1C0E51B1D0AA":[{"id":"51C6C6F2-8A3D-4B52-B1AF-0C3A7D0E9E11",)"
        R"("name":"Studio A","sourceIndices":[0,1,4],"destinationIndices":[2,3]}]},)"
        R"("active":{"7A1F0C52-0F6B-4F9E-9C55-1C0E51B1D0AA":"51C6C6F2-8A3D-4B52-B1AF-0C3A7D0E9E11"}})";
    static void put(PanelStore& store, const QUuid& router)
    {
        store.upsert(SubPanel(), router);
        store.setActivePanelID(QUuid::createUuid(), router);
    }
    static bool has(const PanelStore& store, const QUuid& router)
    {
        EXPECT_EQ(store.panels(router).isEmpty(), !store.activePanelID(router));
        return !store.panels(router).isEmpty();
    }
};

template <>
struct About<SalvoStore> {
    static constexpr auto name = "SalvoStore";
    static constexpr auto file = "salvos.json";
    static constexpr auto aside = "aside";
    static constexpr auto empty = "{}";
    static constexpr auto valid =
        R"({"7A1F0C52-0F6B-4F9E-9C55-1C0E51B1D0AA":[{"id":"0D9B7F1C-52E8-4C0B-8E0A-57A1D2E1C3F4","name":"Morning",)"
        R"("routes":[{"level":0,"destination":3,"source":1},{"level":1,"destination":0,"source":2}],)"
        R"("savedAt":784900000.5},{"id":"51C6C6F2-8A3D-4B52-B1AF-0C3A7D0E9E11","name":"Ä","routes":[],)"
        R"("panelID":"51C6C6F2-8A3D-4B52-B1AF-0C3A7D0E9E11"}]})";
    static void put(SalvoStore& store, const QUuid& router) { store.add(Salvo(), router); }
    static bool has(const SalvoStore& store, const QUuid& router)
    {
        return store.byConnection().contains(idText(router));
    }
};

/// What all stores do alike.
template <typename Store>
class StoreTest : public testing::Test {
protected:
    using Its = About<Store>;

    [[nodiscard]] bool isSaved(const QUuid& router) const { return Its::has(Store(m_folder.path()), router); }

    TemporaryFolder m_folder;
    const QString m_path = m_folder.path(QString::fromLatin1(Its::file));
    const QUuid m_a = QUuid::createUuid();
    const QUuid m_b = QUuid::createUuid();
};

using Stores = testing::Types<LabelStore, PanelStore, SalvoStore>;
TYPED_TEST_SUITE(StoreTest, Stores);

TYPED_TEST(StoreTest, IsWholeOrMovedAsideHoweverItsFileIsSpoilt)
{
    expectWholeOrMovedAside({QString::fromLatin1(TestFixture::Its::file), TestFixture::Its::valid,
        TestFixture::Its::empty, [](const QString& folder) { TypeParam(folder).removeConnection(QUuid()); }});
}

TYPED_TEST(StoreTest, SaysWhereABadFileWentAndNothingOfAMissingOne)
{
    EXPECT_EQ(printedBy([&] { EXPECT_FALSE(this->isSaved(this->m_a)); }), "");
    EXPECT_EQ(this->m_folder.names(), QStringList());
    writeFile(this->m_path, "[5]");
    const std::string its = TestFixture::Its::name;
    EXPECT_THAT(printedBy([&] { EXPECT_FALSE(this->isSaved(this->m_a)); }),
        testing::StartsWith(
            its + ": unreadable " + TestFixture::Its::file + " moved " + TestFixture::Its::aside + " — "));
}

TYPED_TEST(StoreTest, ForgetsARouterAndNoOther)
{
    TypeParam store(this->m_folder.path());
    for (const auto& router : {this->m_a, this->m_b})
        TestFixture::Its::put(store, router);
    EXPECT_TRUE(this->isSaved(this->m_a));
    store.removeConnection(this->m_a);
    EXPECT_FALSE(TestFixture::Its::has(store, this->m_a));
    EXPECT_FALSE(this->isSaved(this->m_a));
    EXPECT_TRUE(this->isSaved(this->m_b));
    store.removeConnection(this->m_b);
    EXPECT_EQ(readFile(this->m_path), TestFixture::Its::empty);
}

TYPED_TEST(StoreTest, ReportsEachSaveAndWritesLaterWhatCouldNotBeSaved)
{
    TypeParam store(this->m_folder.path());
    std::vector<std::string> reports;
    store.onSaved([&](const QString& file, const std::optional<QString>& error) {
        reports.push_back((file + u": "_s + error.value_or(u"saved"_s)).toStdString());
    });
    QDir().mkdir(this->m_path);
    const std::string its = TestFixture::Its::name;
    EXPECT_THAT(printedBy([&] { TestFixture::Its::put(store, this->m_a); }),
        testing::StartsWith(its + ": save failed — Is a directory\n"));
    const std::string file = TestFixture::Its::file;
    EXPECT_EQ(reports.front(), file + ": Is a directory");
    EXPECT_TRUE(TestFixture::Its::has(store, this->m_a));
    reports.clear();
    QDir().rmdir(this->m_path);
    store.removeConnection(this->m_b);
    EXPECT_THAT(reports, ElementsAre(file + ": saved"));
    EXPECT_TRUE(this->isSaved(this->m_a));
}

} // namespace

} // namespace corvane
