#include "TestRows.h"

#include <gmock/gmock.h>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;
using Seen = std::vector<std::string>;

/// The rows as a view has them that was told of every change, and what it was told.
class View {
public:
    explicit View(const TestRows& model) : m_model(model), m_names(model.names())
    {
        QObject::connect(
            &model, &TestRows::rowsRemoved, &m_context, [this](const QModelIndex&, int from, int to) {
                m_names.remove(from, to - from + 1);
                note("removed", from, to);
            });
        QObject::connect(
            &model, &TestRows::rowsInserted, &m_context, [this](const QModelIndex&, int from, int to) {
                for (int row = from; row <= to; ++row)
                    m_names.insert(row, m_model.names().at(row));
                note("inserted", from, to);
            });
        QObject::connect(&model, &TestRows::rowsMoved, &m_context,
            [this](const QModelIndex&, int from, int, const QModelIndex&, int to) {
                m_names.move(from, to);
                note("moved", from, to);
            });
        QObject::connect(&model, &TestRows::dataChanged, &m_context,
            [this](
                const QModelIndex& from, const QModelIndex& to) { note("changed", from.row(), to.row()); });
    }

    [[nodiscard]] const QStringList& names() const { return m_names; }
    /// Since the last call.
    [[nodiscard]] Seen seen() { return std::exchange(m_seen, {}); }

private:
    void note(const std::string& what, int from, int to)
    {
        m_seen.push_back(what + " " + std::to_string(from) + "-" + std::to_string(to));
    }

    const TestRows& m_model;
    QStringList m_names;
    Seen m_seen;
    QObject m_context;
};

QStringList letters(const char* text)
{
    return QString::fromUtf8(text).split(QString(), Qt::SkipEmptyParts);
}

TEST(RowListModel, TellsOfNoMoreThanIsDifferent)
{
    struct Case {
        const char* from;
        const char* to;
        Seen seen;
    };
    const Case cases[] = {
        {"abcd", "abcd", {}},
        {"", "abc", {"inserted 0-2"}},
        {"abcdef", "abef", {"removed 2-3"}},
        {"abcdef", "bcd", {"removed 4-5", "removed 0-0"}},
        {"ad", "abcde", {"inserted 1-2", "inserted 4-4"}},
        {"abcd", "abdc", {"moved 3-2"}},
        {"abcd", "dabc", {"moved 3-0"}},
        {"abcd", "xcbd", {"removed 0-0", "inserted 0-0", "moved 2-1"}},
        {"aab", "aba", {"moved 2-1"}},
        {"ab", "aab", {"inserted 1-1"}},
        {"aaa", "a", {"removed 1-2"}},
        {"abc", "", {"removed 0-2"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.from) + " to " + c.to);
        TestRows model(letters(c.from));
        View view(model);
        model.setNames(letters(c.to));
        EXPECT_EQ(model.names(), letters(c.to));
        EXPECT_EQ(view.names(), model.names());
        EXPECT_EQ(view.seen(), c.seen);
        for (int row = 0; row < model.rowCount(); ++row)
            EXPECT_EQ(model.rowOf(model.names().at(row)), model.names().indexOf(model.names().at(row)));
        EXPECT_EQ(model.rowOf(u"z"_s), std::nullopt);
    }
}

TEST(RowListModel, TellsOfChangedRowsWhenAllAreInTheirPlace)
{
    TestRows model(letters("abc"));
    View view(model);
    QStringList atFirstChange;
    QObject::connect(&model, &TestRows::dataChanged, &model, [&] {
        if (atFirstChange.isEmpty())
            atFirstChange = model.names();
    });
    model.setRows({{.name = u"c"_s, .height = 50}, {.name = u"a"_s}, {.name = u"d"_s}});
    EXPECT_EQ(view.seen(), (Seen{"removed 1-1", "moved 1-0", "inserted 2-2", "changed 0-0"}));
    EXPECT_EQ(atFirstChange, letters("cad"));
    model.setRow(1, {.name = u"a"_s});
    EXPECT_EQ(view.seen(), Seen{}) << "equal";
}

TEST(RowListModel, TheNewestRowsWinWhereSomeoneSetsRowsWhenTold)
{
    TestRows model(letters("abcdef"));
    View view(model);
    bool isFirst = true;
    QObject::connect(&model, &TestRows::rowsRemoved, &model, [&] {
        if (std::exchange(isFirst, false))
            model.setNames(letters("xyf"));
    });
    model.setNames(letters("ace"));
    EXPECT_EQ(model.names(), letters("xyf"));
    EXPECT_EQ(view.names(), model.names());
}

} // namespace

} // namespace corvane
