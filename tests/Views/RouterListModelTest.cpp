#include "Views/RouterListModel.h"
#include "StoreTest.h"
#include "Theme/Tints.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

/// The names in the rows, as a view that was told of every change has them.
class Rows {
public:
    explicit Rows(const QAbstractItemModel& model) : m_model(model)
    {
        readAll();
        QObject::connect(&model, &QAbstractItemModel::modelReset, &m_context, [this] { readAll(); });
        QObject::connect(&model, &QAbstractItemModel::rowsRemoved, &m_context,
            [this](const QModelIndex&, int from, int to) { m_names.remove(from, to - from + 1); });
        QObject::connect(&model, &QAbstractItemModel::rowsInserted, &m_context,
            [this](const QModelIndex&, int from, int to) {
                for (int row = from; row <= to; ++row)
                    m_names.insert(row, name(row));
            });
    }

    [[nodiscard]] QStringList names() const { return m_names; }

private:
    [[nodiscard]] QString name(int row) const { return m_model.index(row, 0).data().toString(); }

    void readAll()
    {
        m_names.clear();
        for (int row = 0; row < m_model.rowCount(); ++row)
            m_names.append(name(row));
    }

    const QAbstractItemModel& m_model;
    QStringList m_names;
    QObject m_context;
};

class RouterListModelTest : public StoreTest {
protected:
    void SetUp() override
    {
        StoreTest::SetUp();
        model = std::make_unique<RouterListModel>(*store, theme);
        QObject::connect(model.get(), &QAbstractItemModel::dataChanged, model.get(),
            [this](const QModelIndex& from, const QModelIndex& to) {
                for (int row = from.row(); row <= to.row(); ++row)
                    m_changed.append(row);
            });
        QObject::connect(model.get(), &QAbstractItemModel::modelReset, model.get(), [this] { ++resets; });
    }

    [[nodiscard]] QVariant at(int row, RouterListModel::Role role) const
    {
        return model->data(model->index(row), role);
    }

    [[nodiscard]] QString statusWord(int row) const
    {
        return at(row, RouterListModel::statusRole).value<StatusLook>().word;
    }

    /// The rows that were told of since the last call.
    [[nodiscard]] QList<int> changedRows() { return std::exchange(m_changed, {}); }

    std::unique_ptr<RouterListModel> model;
    int resets = 0;

private:
    QList<int> m_changed;
};

TEST_F(RouterListModelTest, ListsEachRouterInItsPlace)
{
    ASSERT_EQ(model->rowCount(), 2);
    EXPECT_EQ(at(0, RouterListModel::nameRole), u"Demo"_s);
    EXPECT_EQ(at(0, RouterListModel::endpointRole), u"In-memory demo router"_s);
    EXPECT_EQ(at(1, RouterListModel::nameRole), u"Studio"_s);
    EXPECT_EQ(at(1, RouterListModel::endpointRole), u"10.0.0.5:80"_s);
    EXPECT_EQ(at(1, RouterListModel::symbolRole), u"network"_s);
    EXPECT_EQ(at(1, RouterListModel::tintRole).value<QColor>(), theme.teal());
    EXPECT_FALSE(model->data(model->index(2), RouterListModel::nameRole).isValid());
}

TEST_F(RouterListModelTest, FollowsTheStatusOfEachRouterInItsOwnRow)
{
    EXPECT_EQ(statusWord(1), u"Offline"_s);
    comeUp(studio());
    EXPECT_EQ(statusWord(1), u"Online"_s);
    EXPECT_EQ(statusWord(0), u"Offline"_s);
    EXPECT_EQ(changedRows(), (QList{1, 1}));
}

TEST_F(RouterListModelTest, SelectsInTheStoreAndFollowsIt)
{
    EXPECT_EQ(model->selectedRow(), 0);
    model->select(1);
    EXPECT_EQ(store->selectedConnectionID(), studio().id);
    EXPECT_EQ(model->selectedRow(), 1);
    for (const int beyond : {-1, 2}) {
        model->select(beyond);
        EXPECT_EQ(model->selectedRow(), 1);
    }
    store->setSelectedConnectionID(std::nullopt);
    EXPECT_EQ(model->selectedRow(), -1);
}

TEST_F(RouterListModelTest, AnEditedRouterKeepsItsRowAndItsNewControllerIsFollowed)
{
    comeUp(studio());
    auto edited = studio();
    edited.name = u"Studio B"_s;
    store->update(edited);
    EXPECT_EQ(at(1, RouterListModel::nameRole), u"Studio B"_s);
    EXPECT_EQ(statusWord(1), u"Offline"_s);
    EXPECT_EQ(resets, 0);

    (void)changedRows();
    comeUp(studio());
    EXPECT_EQ(statusWord(1), u"Online"_s);
    EXPECT_EQ(changedRows(), (QList{1, 1}));
}

TEST_F(RouterListModelTest, AddedAndRemovedRoutersComeAndGoInTheirOwnRows)
{
    Rows rows(*model);
    RouterConnection added;
    added.name = u"New"_s;
    store->add(added, ConnectionStore::Persist::yes);
    EXPECT_EQ(rows.names(), (QStringList{u"Demo"_s, u"Studio"_s, u"New"_s}));
    EXPECT_EQ(model->selectedRow(), 2);
    store->remove(demo());
    EXPECT_EQ(rows.names(), (QStringList{u"Studio"_s, u"New"_s}));
    EXPECT_EQ(model->selectedRow(), 1);
    EXPECT_EQ(resets, 0);
    (void)changedRows();
    comeUp(added);
    EXPECT_EQ(changedRows(), (QList{1, 1}));
    store->remove(studio());
    store->remove(added);
    EXPECT_TRUE(rows.names().isEmpty());
    EXPECT_EQ(model->selectedRow(), -1);
}

TEST_F(RouterListModelTest, FollowsAnyOtherList)
{
    RouterConnection first;
    first.name = u"First"_s;
    RouterConnection last;
    last.name = u"Last"_s;
    const QList<QList<RouterConnection>> lists{{studio(), demo()}, {first, studio(), demo()},
        {first, demo(), last}, {last}, {}, {demo(), demo(), studio()}, {studio(), last}};
    Rows rows(*model);
    for (const auto& list : lists) {
        store->setConnections(list);
        QStringList names;
        for (const auto& router : list)
            names.append(router.name);
        EXPECT_EQ(rows.names(), names);
        EXPECT_EQ(model->rowCount(), list.size());
    }
    comeUp(lists.last().at(1));
    EXPECT_EQ(statusWord(1), u"Online"_s);
    EXPECT_EQ(model->rowOf(last.id), 1);
    EXPECT_EQ(model->rowOf(first.id), -1);
}

TEST_F(RouterListModelTest, NamesWhatEachRowOffers)
{
    EXPECT_EQ(at(1, RouterListModel::commandNamesRole), QVariant(QStringList{u"Edit…"_s, u"Delete…"_s}));
    comeUp(studio());
    EXPECT_EQ(at(1, RouterListModel::commandNamesRole),
        QVariant(QStringList{u"Edit…"_s, u"Disconnect"_s, u"Delete…"_s}));
    EXPECT_TRUE(model->commands(-1).isEmpty());
    EXPECT_TRUE(model->commands(2).isEmpty());
}

} // namespace

} // namespace corvane
