#pragma once

#include "Views/Grid/GridActions.h"
#include "Views/Grid/GridPlace.h"
#include "Views/Grid/GridRowView.h"
#include "Views/Grid/LabelWidths.h"
#include "Views/Shared/ScreenModel.h"

#include <QtQml/qqmlregistration.h>

namespace corvane {

/// What the grid shows of a controller: one column for each visible source, one row for each visible
/// destination, on the primary level. Positions are those in the visible lists; port indices are the ports'
/// own.
///
/// Holds nothing but what is derived. Rows are made when they are asked for, so that a change costs what is
/// in view and not what exists. A grid that is hidden is given no controller, and so does nothing. Main
/// thread.
class CrosspointGridModel : public ScreenModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a WorkspaceModel")

public:
    /// Up to so many cells each cell is an item of its own, with hover and accessibility; above, the field is
    /// one surface.
    static constexpr qint64 hoverCellLimit = 1600;

    explicit CrosspointGridModel(const GlassKit& theme, QObject* parent = nullptr);

    /// May be null: the grid is then empty.
    void setController(MatrixController* controller) override;

    using ScreenModel::palette;
    /// Between two cells, in points.
    [[nodiscard]] double gap() const { return m_gap; }

    [[nodiscard]] const QList<Port>& sources() const { return m_sources; }
    [[nodiscard]] const QList<Port>& destinations() const { return m_destinations; }
    [[nodiscard]] std::optional<int> rowOf(qint64 destination) const;
    [[nodiscard]] std::optional<int> columnOf(qint64 source) const;

    [[nodiscard]] const QColor& tint() const { return m_common.tint; }
    [[nodiscard]] bool hoverEnabled() const;
    /// The staged source, if there is a staged destination that it could go to.
    [[nodiscard]] std::optional<qint64> armedSource() const { return m_common.armedSource; }
    /// The width of the row headers, by the widest destination label.
    [[nodiscard]] int destWidth() const { return m_destWidth; }
    /// The height of the column headers, by the widest source label.
    [[nodiscard]] int headerHeight() const { return m_headerHeight; }

    [[nodiscard]] GridRowView row(int position) const;
    [[nodiscard]] SourceColumnHeader column(int position) const;
    /// What the device says of the signal at a source, or else how to rename it.
    [[nodiscard]] QString signalHelp(qint64 source) const;
    [[nodiscard]] bool hasSignalStatus(qint64 source) const;
    /// Empty where there is nothing to tell.
    [[nodiscard]] QString toolTip(GridPlace place) const;

    [[nodiscard]] GridActions& actions() { return m_actions; }

signals:
    /// This row may look different; nothing else does. When anything may look different at the same places,
    /// `contentChanged` is emitted.
    void rowChanged(int position);
    void columnChanged(int position);
    /// There are other ports than before, or in other places.
    void portsChanged();

protected:
    void refresh() override;

private:
    /// What all rows and columns have in common.
    struct Common {
        const GlassPalette* palette = nullptr;
        QColor tint;
        qint64 primaryLevel = 0;
        std::optional<qint64> pendingDestination;
        std::optional<qint64> armedSource;
        bool panelActive = false;
        bool operator==(const Common&) const = default;
    };

    void observe(const MatrixController& observed);
    void show(const QList<Port>& sources, const QList<Port>& destinations);
    [[nodiscard]] Common common() const;
    [[nodiscard]] QString routedLabel(std::optional<qint64> source) const;

    const double m_gap;
    GridActions m_actions;
    Common m_common;
    QList<Port> m_sources;
    QList<Port> m_destinations;
    QHash<qint64, int> m_columnOf;
    QHash<qint64, int> m_rowOf;
    LabelWidths m_sourceWidths;
    LabelWidths m_destinationWidths;
    int m_destWidth = 0;
    int m_headerHeight = 0;
};

} // namespace corvane
