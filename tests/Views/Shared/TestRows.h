#pragma once

#include "Views/Shared/RowListModel.h"

namespace corvane {

using namespace Qt::StringLiterals;

/// A row of a list that only tests have.
struct TestRow {
    QString name;
    double height = 40;
    /// The head of a section.
    bool isHead = false;
    bool isSelected = false;

    [[nodiscard]] const QString& key() const { return name; }
    bool operator==(const TestRow&) const = default;
};

/// Notes what is done with its rows: "press Row 3".
class TestRows : public KeyedRowListModel<TestRow> {
public:
    enum Role { nameRole = Qt::UserRole, heightRole, buttonsRole };

    /// "Row 0", "Row 1"…
    explicit TestRows(int count = 0)
    {
        QList<TestRow> rows;
        for (int i = 0; i < count; ++i)
            rows.append({.name = u"Row %1"_s.arg(i)});
        setRows(rows);
    }
    explicit TestRows(const QStringList& names) { setNames(names); }

    using KeyedRowListModel::setRow;
    using KeyedRowListModel::setRows;

    void setNames(const QStringList& names)
    {
        QList<TestRow> rows;
        for (const auto& name : names)
            rows.append({.name = name});
        setRows(rows);
    }
    [[nodiscard]] QStringList names() const
    {
        QStringList names;
        for (const auto& row : rows())
            names.append(row.name);
        return names;
    }

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override
    {
        const auto* const row = rowAt(index.row());
        if (role == buttonsRole)
            return toVariants({{u"Rename"_s, u"pencil"_s, {}}, {u"Delete"_s, u"trash"_s, {}}});
        return role == heightRole ? QVariant(row->height) : QVariant(row->name);
    }
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override
    {
        return {{nameRole, "name"}, {heightRole, "rowHeight"}, {buttonsRole, "buttons"}};
    }
    [[nodiscard]] RowSpeech speech(int row) const override
    {
        return {.name = rows().at(row).name,
            .description = u"%1 high"_s.arg(rows().at(row).height),

            .isSelectable = true,
            .isSelected = rows().at(row).isSelected};
    }
    [[nodiscard]] bool isReachable(int row) const override { return contains(row) && !rows().at(row).isHead; }
    [[nodiscard]] int startRow() const override { return start; }
    [[nodiscard]] QList<MenuAction> menu(int row) override
    {
        if (!contains(row))
            return {};
        QList<MenuAction> menu{action("Rename", row, Qt::Key_F2), action("Delete", row, Qt::Key_Delete)};
        if (offersMore)
            menu.prepend(action("Fire", row));
        return menu;
    }
    [[nodiscard]] QList<MenuAction> actions(int row) override
    {
        return QList{action("Move Up", row, Qt::AltModifier | Qt::Key_Up)} + menu(row);
    }
    void press(int row) override { note("press", row); }
    void click(int row) override { note("click", row); }
    void doubleClick(int row) override { note("doubleClick", row); }
    void arrive(int row) override { arrivals.push_back(row); }
    [[nodiscard]] bool canMove(int row) const override { return isReachable(row); }
    void moveRow(int row, int before) override { note("move to " + std::to_string(before) + ":", row); }

    /// What was done since the last call.
    [[nodiscard]] std::vector<std::string> done() { return std::exchange(m_done, {}); }

    int start = 0;
    bool offersMore = false;
    std::vector<int> arrivals;

private:
    [[nodiscard]] MenuAction action(const char* text, int row, QKeyCombination key = Qt::Key_unknown)
    {
        return {QString::fromUtf8(text), {}, [this, text, row] { note(text, row); }, key};
    }
    void note(const std::string& what, int row)
    {
        m_done.push_back(what + " " + rows().at(row).name.toStdString());
    }

    std::vector<std::string> m_done;
};

} // namespace corvane
