#pragma once

#include "Controllers/MatrixController.h"
#include "Theme/GlassPalette.h"
#include "Views/CanvasCellField.h"
#include "Views/GridRowView.h"
#include "Views/LabelWidths.h"

#include <QPointer>

namespace corvane {

/// What the grid shows of a controller: one column for each visible source, one row for each visible
/// destination, on the primary level. Positions are those in the visible lists; port indices are the ports'
/// own.
///
/// Holds nothing but what is derived. Rows are made when they are asked for, so that a change costs what is
/// in view and not what exists. Main thread.
class CrosspointGridModel : public QObject {
    Q_OBJECT

public:
    /// Up to so many cells each cell is a thing of its own, with hover and accessibility; above, the field is
    /// one surface.
    static constexpr qint64 defaultHoverCellLimit = 1600;

    explicit CrosspointGridModel(QObject* parent = nullptr);

    [[nodiscard]] MatrixController* controller() const { return m_controller; }
    /// May be null: the grid is then empty.
    void setController(MatrixController* controller);

    [[nodiscard]] const GlassPalette& palette() const { return *m_palette; }
    void setPalette(const GlassPalette& palette);

    [[nodiscard]] qint64 hoverCellLimit() const { return m_hoverCellLimit; }
    void setHoverCellLimit(qint64 limit);

    [[nodiscard]] const QList<Port>& sources() const { return m_sources; }
    [[nodiscard]] const QList<Port>& destinations() const { return m_destinations; }
    [[nodiscard]] std::optional<int> rowOf(qint64 destination) const;
    [[nodiscard]] std::optional<int> columnOf(qint64 source) const;

    [[nodiscard]] QColor tint() const;
    [[nodiscard]] bool hoverEnabled() const;
    /// The staged source, if there is a staged destination that it could go to.
    [[nodiscard]] std::optional<qint64> armedSource() const;
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

signals:
    /// This row may look different; nothing else does.
    void rowChanged(int position);
    void columnChanged(int position);
    /// Anything may look different, at the same places.
    void looksChanged();
    /// There are other ports than before, or in other places.
    void portsChanged();

private:
    void observe(MatrixController& controller);
    void reloadPorts();
    [[nodiscard]] QString routedLabel(std::optional<qint64> source) const;

    QPointer<MatrixController> m_controller;
    const GlassPalette* m_palette;
    qint64 m_hoverCellLimit = defaultHoverCellLimit;
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
