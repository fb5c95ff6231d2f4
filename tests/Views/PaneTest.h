#pragma once

#include "Views/PaneModel.h"
#include "support/ControllerTest.h"

#include <algorithm>

namespace corvane {

/// A pane of the list on a controller that does as the test says.
template <typename Model>
class PaneTest : public ControllerTest {
protected:
    void show(const RouterState& state)
    {
        connectTo(state);
        model.setController(controller.get());
    }

    void showPanel(const QList<qint64>& sources, const QList<qint64>& destinations)
    {
        const SubPanel panel{
            .name = QStringLiteral("Panel"), .sourceIndices = sources, .destinationIndices = destinations};
        controller->savePanel(panel);
        controller->setActivePanelID(panel.id);
    }

    [[nodiscard]] SelectableRow row(int position) const
    {
        return model.data(model.index(position), PaneModel::rowRole).template value<SelectableRow>();
    }

    /// The positions of the rows that are so.
    [[nodiscard]] std::vector<int> positions(bool SelectableRow::*mark) const
    {
        std::vector<int> result;
        for (int position = 0; position < model.rowCount(); ++position)
            if (row(position).*mark)
                result.push_back(position);
        return result;
    }
    [[nodiscard]] std::vector<int> current() const { return positions(&SelectableRow::isCurrent); }
    [[nodiscard]] std::vector<int> pending() const { return positions(&SelectableRow::isPending); }

    [[nodiscard]] std::string subtitle() const { return model.content().subtitle.toStdString(); }

    Model model;
};

/// What a pane tells of its rows: "changed 3", "removed 2-5", "inserted 2-3", "reset".
class RowTellings {
public:
    explicit RowTellings(const PaneModel& model)
    {
        QObject::connect(&model, &PaneModel::dataChanged, &m_context,
            [this](const QModelIndex& from, const QModelIndex& to) {
                for (int row = from.row(); row <= to.row(); ++row)
                    m_seen.push_back("changed " + std::to_string(row));
            });
        QObject::connect(&model, &PaneModel::rowsRemoved, &m_context,
            [this](const QModelIndex&, int from, int to) { note("removed ", from, to); });
        QObject::connect(&model, &PaneModel::rowsInserted, &m_context,
            [this](const QModelIndex&, int from, int to) { note("inserted ", from, to); });
        QObject::connect(
            &model, &PaneModel::modelReset, &m_context, [this] { m_seen.emplace_back("reset"); });
    }

    /// Since the last call.
    [[nodiscard]] std::vector<std::string> seen() { return std::exchange(m_seen, {}); }

private:
    void note(const char* what, int from, int to)
    {
        m_seen.push_back(what + std::to_string(from) + "-" + std::to_string(to));
    }

    QObject m_context;
    std::vector<std::string> m_seen;
};

} // namespace corvane
