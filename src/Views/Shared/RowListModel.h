#pragma once

#include "Views/Shared/MenuAction.h"

#include <QAbstractListModel>
#include <QAccessible>
#include <QHash>
#include <QSet>

#include <algorithm>
#include <optional>

namespace corvane {

/// What a screen reader hears of a row.
struct RowSpeech {
    QString name{};
    QString description{};
    QString help{};
    QAccessible::Role role = QAccessible::ListItem;
    bool isSelectable = false;
    bool isSelected = false;

    bool operator==(const RowSpeech&) const = default;
};

/// What a `RowList` shows and what can be done with its rows.
///
/// Rows count from 0. A row that isn't there is ignored, and offers nothing. Main thread.
class RowListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A base")

public:
    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] virtual RowSpeech speech(int row) const = 0;
    /// The keyboard stops here, and the pointer can act here. False for the heads and feet of sections.
    [[nodiscard]] virtual bool isReachable(int row) const { return contains(row); }
    /// Where the operator's eye is to begin.
    [[nodiscard]] virtual int startRow() const { return 0; }

    /// The context menu.
    [[nodiscard]] virtual QList<MenuAction> menu(int /*row*/) { return {}; }
    /// All that can be done with the row, for keys, row buttons and screen readers.
    [[nodiscard]] virtual QList<MenuAction> actions(int row) { return menu(row); }

    /// Space, or a screen reader's press.
    virtual void press(int row) = 0;
    /// The pointer's click, and the second click of a double click, which follows a `click` of the same row.
    virtual void click(int row) { press(row); }
    virtual void doubleClick(int row) { click(row); }
    /// The keyboard has been moved here.
    virtual void arrive(int /*row*/) { }

    /// Whether the row can be dragged to another place of the list.
    [[nodiscard]] virtual bool canMove(int /*row*/) const { return false; }
    /// Puts the row before the one that is now at `before`; the number of rows stands for the end.
    virtual void moveRow(int /*row*/, int /*before*/) { }

signals:
    /// The list is to put the keyboard's place onto this row and show it.
    void rowWanted(int row);

protected:
    [[nodiscard]] bool contains(int row) const { return row >= 0 && row < rowCount(); }
};

/// A `RowListModel` of values that are told apart by their `key()`.
///
/// Keeps the rows as it last told of them and tells only of real differences: a row comes, goes or moves as
/// itself, and the others stay where they are.
template <typename Row>
class KeyedRowListModel : public RowListModel {
public:
    using Key = std::decay_t<decltype(std::declval<const Row&>().key())>;

    using RowListModel::RowListModel;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const final
    {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
    }
    [[nodiscard]] const QList<Row>& rows() const { return m_rows; }
    /// Null for a row that isn't there.
    [[nodiscard]] const Row* rowAt(int row) const { return contains(row) ? &m_rows.at(row) : nullptr; }
    [[nodiscard]] std::optional<int> rowOf(const Key& key) const
    {
        if (m_positions.isEmpty())
            for (int row = rowCount() - 1; row >= 0; --row)
                m_positions.insert(m_rows.at(row).key(), row);
        const auto found = m_positions.constFind(key);
        return found == m_positions.cend() ? std::nullopt : std::optional(*found);
    }

protected:
    /// Takes over all rows.
    void setRows(const QList<Row>& rows)
    {
        // Whoever is told of a row may set other rows, which are then the newer ones.
        const auto turn = ++m_turn;
        removeOthersThan(rows, turn);
        arrangeAs(rows, turn);
        if (turn == m_turn)
            adopt(rows);
    }

    /// Takes over one row, which has the key that it had.
    void setRow(int position, const Row& row)
    {
        if (std::exchange(m_rows[position], row) != row)
            emit dataChanged(index(position), index(position));
    }

private:
    [[nodiscard]] int find(const Key& key, int from) const
    {
        const auto found = std::ranges::find(m_rows.cbegin() + from, m_rows.cend(), key, &Row::key);
        return found == m_rows.cend() ? -1 : static_cast<int>(found - m_rows.cbegin());
    }

    void removeOthersThan(const QList<Row>& rows, int turn)
    {
        QSet<Key> kept;
        for (const auto& row : rows)
            kept.insert(row.key());
        for (int end = rowCount(); end > 0 && turn == m_turn;) {
            int begin = end;
            while (begin > 0 && !kept.contains(m_rows.at(begin - 1).key()))
                --begin;
            remove(begin, end);
            end = begin - 1;
        }
    }

    void arrangeAs(const QList<Row>& rows, int turn)
    {
        for (int row = 0; row < rows.size() && turn == m_turn; ++row) {
            const auto key = rows.at(row).key();
            if (row < rowCount() && m_rows.at(row).key() == key)
                continue;
            if (const int from = find(key, row); from >= 0) {
                move(from, row);
                continue;
            }
            int end = row + 1;
            while (end < rows.size() && find(rows.at(end).key(), row) < 0)
                ++end;
            insert(row, rows.sliced(row, end - row));
            row = end - 1;
        }
        if (turn == m_turn)
            remove(static_cast<int>(rows.size()), rowCount());
    }

    void adopt(const QList<Row>& rows)
    {
        QList<int> changed;
        for (int row = 0; row < rows.size(); ++row)
            if (m_rows.at(row) != rows.at(row))
                changed.append(row);
        for (const int row : changed)
            m_rows[row] = rows.at(row);
        for (const int row : changed)
            emit dataChanged(index(row), index(row));
    }

    void remove(int begin, int end)
    {
        if (begin >= end)
            return;
        beginRemoveRows({}, begin, end - 1);
        m_rows.remove(begin, end - begin);
        m_positions.clear();
        endRemoveRows();
    }

    void insert(int at, const QList<Row>& rows)
    {
        beginInsertRows({}, at, at + static_cast<int>(rows.size()) - 1);
        m_rows = m_rows.first(at) + rows + m_rows.sliced(at);
        m_positions.clear();
        endInsertRows();
    }

    void move(int from, int to)
    {
        beginMoveRows({}, from, from, {}, to);
        m_rows.move(from, to);
        m_positions.clear();
        endMoveRows();
    }

    QList<Row> m_rows;
    mutable QHash<Key, int> m_positions;
    int m_turn = 0;
};

} // namespace corvane
