#pragma once

#include "Theme/GlassKit.h"
#include "Views/List/PaneModel.h"
#include "support/ControllerTest.h"

namespace corvane {

using namespace Qt::StringLiterals;

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
            .name = u"Panel"_s, .sourceIndices = sources, .destinationIndices = destinations};
        controller->savePanel(panel);
        controller->setActivePanelID(panel.id);
    }

    [[nodiscard]] const SelectableRow& row(int position) const { return model.rows().at(position); }

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

    /// "text|symbol" of each.
    [[nodiscard]] static std::vector<std::string> said(const QList<MenuAction>& actions)
    {
        std::vector<std::string> result;
        for (const auto& action : actions)
            result.push_back(action.text.toStdString() + "|" + action.symbol.toStdString());
        return result;
    }

    GlassKit theme{nullptr};
    PaneClicks clicks{queue};
    Model model{clicks, theme};
};

/// Which rows a pane tells of: "changed 3".
class RowTellings {
public:
    explicit RowTellings(const PaneModel& model)
    {
        QObject::connect(&model, &PaneModel::dataChanged, &m_context,
            [this](const QModelIndex& from, const QModelIndex& to) {
                for (int row = from.row(); row <= to.row(); ++row)
                    m_seen.push_back("changed " + std::to_string(row));
            });
    }

    /// Since the last call.
    [[nodiscard]] std::vector<std::string> seen() { return std::exchange(m_seen, {}); }

private:
    QObject m_context;
    std::vector<std::string> m_seen;
};

} // namespace corvane
