#pragma once

#include "Model/RouterModels.h"
#include "Views/Panels/PanelPortRow.h"
#include "Views/Shared/RowListModel.h"

namespace corvane {

/// One half of the panel editor: the ports of one kind that are in the panel, then those that could be. A
/// click moves a port to the other section.
///
/// What is chosen is ascending and without repetition, and keeps ports that the router hasn't got. Main
/// thread.
class PanelAxisModel : public KeyedRowListModel<PanelPortRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a PanelEditorModel")
    /// What screen readers call the list.
    Q_PROPERTY(QString label READ label CONSTANT FINAL)
    Q_PROPERTY(bool isSource READ isSource CONSTANT FINAL)
    /// The widest number that a row has, for its column.
    Q_PROPERTY(QString widestNumber READ widestNumber NOTIFY rowsShown FINAL)

public:
    /// The row as a whole, a `PanelPortRow`. The display role is its text.
    static constexpr int rowRole = Qt::UserRole;

    explicit PanelAxisModel(PortKind kind) : m_kind(kind) { }

    /// In any order, with any repetition.
    void setChosen(const QList<qint64>& indices);
    [[nodiscard]] const QList<qint64>& chosen() const { return m_chosen; }
    /// All ports of this kind that the router has, in its order.
    void setPorts(const QList<Port>& ports);
    /// What the available ports are filtered by: their names in any case, or their number. Empty shows all.
    void setSearch(const QString& search);
    /// How many of the chosen ports the router hasn't got.
    [[nodiscard]] qsizetype missingCount() const;

    [[nodiscard]] QString label() const;
    [[nodiscard]] bool isSource() const { return m_kind == PortKind::source; }
    [[nodiscard]] QString widestNumber() const;

    /// Chooses all that are listed as available.
    Q_INVOKABLE void chooseAll();
    /// Gives up all chosen ports that the filter shows; those that the router hasn't got stay.
    Q_INVOKABLE void chooseNone();

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
    [[nodiscard]] RowSpeech speech(int row) const override;
    [[nodiscard]] bool isReachable(int row) const override;
    [[nodiscard]] int startRow() const override;
    void press(int row) override;

signals:
    /// Other ports may be chosen, or missing.
    void countsChanged();
    void rowsShown();

private:
    [[nodiscard]] bool matchesSearch(const Port& port) const;
    void choose(QList<qint64> indices);
    void refresh();
    [[nodiscard]] QList<PanelPortRow> chosenRows() const;
    [[nodiscard]] QList<PanelPortRow> availableRows() const;
    [[nodiscard]] PanelPortRow availableHead(qsizetype listed) const;

    const PortKind m_kind;
    QList<qint64> m_chosen;
    QList<Port> m_ports;
    /// By index.
    QHash<qint64, QString> m_labels;
    QString m_search;
};

} // namespace corvane
