#include "Views/Panels/PanelAxisModel.h"

#include "Foundation/Text.h"
#include "Views/Panels/PanelTexts.h"

#include <QSet>

#include <algorithm>
#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;
using Kind = PanelPortRow::Kind;

void PanelAxisModel::setChosen(const QList<qint64>& indices)
{
    choose(indices);
    refresh();
}

void PanelAxisModel::setPorts(const QList<Port>& ports)
{
    if (ports == m_ports)
        return;
    m_ports = ports;
    m_labels.clear();
    for (const auto& port : ports)
        m_labels.insert(port.index, text::oneLine(port.label));
    refresh();
    emit countsChanged();
}

void PanelAxisModel::setSearch(const QString& search)
{
    if (std::exchange(m_search, search) != search)
        refresh();
}

qsizetype PanelAxisModel::missingCount() const
{
    return std::ranges::count_if(m_chosen, [this](qint64 index) { return !m_labels.contains(index); });
}

QString PanelAxisModel::label() const
{
    return isSource() ? u"Sources in panel"_s : u"Destinations in panel"_s;
}

QString PanelAxisModel::widestNumber() const
{
    QString widest;
    for (const auto& row : rows())
        if (row.number.size() > widest.size())
            widest = row.number;
    return widest;
}

void PanelAxisModel::chooseAll()
{
    auto indices = m_chosen;
    for (const auto& row : rows())
        if (row.kind == Kind::available)
            indices.append(row.index);
    choose(indices);
    refresh();
}

void PanelAxisModel::chooseNone()
{
    QSet<qint64> matching;
    for (const auto& port : m_ports)
        if (matchesSearch(port))
            matching.insert(port.index);
    auto indices = m_chosen;
    indices.removeIf([&matching](qint64 index) { return matching.contains(index); });
    choose(indices);
    refresh();
}

QVariant PanelAxisModel::data(const QModelIndex& index, int role) const
{
    const auto* const row = rowAt(index.row());
    if (!row)
        return {};
    if (role == rowRole)
        return QVariant::fromValue(*row);
    return role == Qt::DisplayRole ? QVariant(row->text) : QVariant();
}

QHash<int, QByteArray> PanelAxisModel::roleNames() const
{
    return {{rowRole, "row"}};
}

RowSpeech PanelAxisModel::speech(int row) const
{
    const auto* const shown = rowAt(row);
    if (!shown)
        return {};
    if (shown->isHead())
        return {.name = shown->text, .role = QAccessible::Heading};
    return {.name = shown->isMissing ? shown->text : u"%1 %2"_s.arg(shown->number, shown->text),
        .help = shown->isChosen() ? u"Removes it from the panel"_s : u"Adds it to the panel"_s};
}

bool PanelAxisModel::isReachable(int row) const
{
    const auto* const shown = rowAt(row);
    return shown && !shown->isHead();
}

int PanelAxisModel::startRow() const
{
    const auto first = std::ranges::find_if_not(rows(), &PanelPortRow::isHead);
    return first == rows().cend() ? -1 : static_cast<int>(first - rows().cbegin());
}

void PanelAxisModel::press(int row)
{
    if (!isReachable(row))
        return;
    const auto [index, wasChosen] = std::pair(rowAt(row)->index, rowAt(row)->isChosen());
    auto indices = m_chosen;
    if (wasChosen)
        indices.removeAll(index);
    else
        indices.append(index);
    choose(indices);
    refresh();
}

bool PanelAxisModel::matchesSearch(const Port& port) const
{
    return m_search.isEmpty() || port.label.contains(m_search, Qt::CaseInsensitive)
        || panelTexts::number(port.index) == m_search;
}

void PanelAxisModel::choose(QList<qint64> indices)
{
    std::ranges::sort(indices);
    const auto repeated = std::ranges::unique(indices);
    indices.erase(repeated.begin(), repeated.end());
    if (std::exchange(m_chosen, indices) != indices)
        emit countsChanged();
}

void PanelAxisModel::refresh()
{
    const auto available = availableRows();
    QList<PanelPortRow> rows{{.kind = Kind::chosenHead, .text = label()}};
    rows += chosenRows();
    rows += availableHead(available.size());
    rows += available;
    setRows(rows);
    emit rowsShown();
}

QList<PanelPortRow> PanelAxisModel::chosenRows() const
{
    QList<PanelPortRow> rows;
    rows.reserve(m_chosen.size());
    for (const qint64 index : m_chosen) {
        const auto name = m_labels.constFind(index);
        const bool isMissing = name == m_labels.cend();
        rows.append({.kind = Kind::chosen,
            .index = index,
            .number = panelTexts::number(index),
            .text = isMissing ? panelTexts::missingPort(index) : *name,
            .isMissing = isMissing});
    }
    return rows;
}

QList<PanelPortRow> PanelAxisModel::availableRows() const
{
    QList<PanelPortRow> rows;
    for (const auto& port : m_ports)
        if (!std::ranges::binary_search(m_chosen, port.index) && matchesSearch(port))
            rows.append({.kind = Kind::available,
                .index = port.index,
                .number = panelTexts::number(port.index),
                .text = m_labels.value(port.index)});
    return rows;
}

PanelPortRow PanelAxisModel::availableHead(qsizetype listed) const
{
    return {.kind = Kind::availableHead, .text = u"Available (%1 of %2)"_s.arg(listed).arg(m_ports.size())};
}

} // namespace corvane
