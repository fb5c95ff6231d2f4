#include "Model/LabelStore.h"
#include "support/Files.h"

#include <gtest/gtest.h>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

const QUuid router = QUuid::fromString(u"{7A1F0C52-0F6B-4F9E-9C55-1C0E51B1D0AA}");
const QString routerKey = u"7A1F0C52-0F6B-4F9E-9C55-1C0E51B1D0AA"_s;

class LabelStoreTest : public testing::Test {
protected:
    [[nodiscard]] QByteArray file() const { return readFile(m_folder.path(u"labels.json"_s)); }
    [[nodiscard]] PortLabels labels() const { return m_store.byConnection().value(routerKey); }
    /// What the next start would find.
    [[nodiscard]] QHash<QString, PortLabels> reloaded() const
    {
        return LabelStore(m_folder.path()).byConnection();
    }

    TemporaryFolder m_folder;
    LabelStore m_store{m_folder.path()};
};

TEST_F(LabelStoreTest, WritesEachLabelUnderItsRouterKindAndIndex)
{
    m_store.setAll({{{PortKind::source, 0}, u"CAM\n1"_s}, {{PortKind::destination, 3}, u"PGM"_s}}, router);
    EXPECT_EQ(file(),
        R"({"7A1F0C52-0F6B-4F9E-9C55-1C0E51B1D0AA":{"sources":{"0":"CAM 1"},"destinations":{"3":"PGM"}}})");
}

TEST_F(LabelStoreTest, TrimsALabelAndTakesABlankOneForNone)
{
    struct Case {
        std::optional<QString> label;
        QHash<QString, QString> expected;
    };
    const Case cases[] = {
        {u"\u00a0Cam  2\t"_s, {{u"7"_s, u"Cam  2"_s}}},
        {u" \n "_s, {}},
        {u"Cam 3"_s, {{u"7"_s, u"Cam 3"_s}}},
        {std::nullopt, {}},
        {std::nullopt, {}},
    };
    for (const auto& c : cases) {
        m_store.set(c.label, PortKind::source, 7, router);
        EXPECT_EQ(labels().sources, c.expected);
        EXPECT_EQ(reloaded(), m_store.byConnection());
    }
    EXPECT_EQ(file(), "{}");
}

TEST_F(LabelStoreTest, KeepsARoutersEntryAsLongAsItHasALabelOfEitherKind)
{
    m_store.set(u"a"_s, PortKind::source, 1, router);
    m_store.set(u"b"_s, PortKind::destination, 1, router);
    m_store.set(std::nullopt, PortKind::source, 1, router);
    EXPECT_EQ(labels(), (PortLabels{{}, {{u"1"_s, u"b"_s}}}));
    m_store.setAll({{{PortKind::destination, 1}, u""_s}}, router);
    EXPECT_TRUE(m_store.byConnection().isEmpty());
}

TEST_F(LabelStoreTest, MergesByAddingAndOverwritingAndNeverClears)
{
    m_store.set(u"old"_s, PortKind::source, 0, router);
    m_store.set(u"kept"_s, PortKind::source, 1, router);
    m_store.merge(
        {{{0, u" new\t1 "_s}, {1, u" \n"_s}, {999'999, u"beyond"_s}}, {{1, u"PGM"_s}, {2, u""_s}}}, router);
    EXPECT_EQ(labels(),
        (PortLabels{
            {{u"0"_s, u"new 1"_s}, {u"1"_s, u"kept"_s}, {u"999999"_s, u"beyond"_s}}, {{u"1"_s, u"PGM"_s}}}));
    EXPECT_EQ(reloaded(), m_store.byConnection());
}

TEST_F(LabelStoreTest, SavesAlsoWhenNothingChanged)
{
    const QUuid other = QUuid::createUuid();
    m_store.merge({{{0, u" "_s}}, {}}, other);
    EXPECT_EQ(file(), "{}");
    writeFile(m_folder.path(u"labels.json"_s), "overwritten");
    m_store.set(std::nullopt, PortKind::source, 0, other);
    EXPECT_EQ(file(), "{}");
}

TEST(LabelStoreFile, KeepsEntriesThatNobodyAsksFor)
{
    const TemporaryFolder folder;
    writeFile(folder.path(u"labels.json"_s), R"({"X \"y\"":{"sources":{"007":" a "},"destinations":{}}})");
    LabelStore(folder.path()).removeConnection(router);
    EXPECT_EQ(readFile(folder.path(u"labels.json"_s)),
        R"({"X \"y\"":{"sources":{"007":" a "},"destinations":{}}})");
}

} // namespace

} // namespace corvane
