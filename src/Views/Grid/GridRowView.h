#pragma once

#include "Model/RouterModels.h"

namespace corvane {

/// The state of one cell; how it is drawn is up to the painter.
struct CrosspointCell {
    bool isConnected = false;
    /// A take is staged for exactly this crossing.
    bool isPending = false;
    /// Its row or its column is staged.
    bool highlighted = false;
    bool locked = false;
    bool operator==(const CrosspointCell&) const = default;
};

/// The content of the header in front of a row.
struct DestinationRowHeader {
    Port dest;
    QString routedLabel;
    /// A panel is active and hides the source that feeds this destination.
    bool offPanelFeed = false;
    bool locked = false;
    bool isPendingDest = false;
    bool operator==(const DestinationRowHeader&) const = default;
};

/// The content of the header above a column.
struct SourceColumnHeader {
    Port source;
    bool isArmed = false;
    /// Absent where the router reports no signal status.
    std::optional<bool> signalPresent;
    bool operator==(const SourceColumnHeader&) const = default;

    /// For screen readers: the label and the number.
    [[nodiscard]] QString label() const;
};

/// All that one row shows, apart from what all rows have in common: two equal rows look the same, so an
/// unchanged one is not painted again.
struct GridRowView {
    Port dest;
    QList<Port> sources;
    std::optional<qint64> routedSource;
    QString routedLabel;
    bool offPanelFeed = false;
    bool locked = false;
    bool isPendingDest = false;
    std::optional<qint64> armedSource;
    bool operator==(const GridRowView&) const = default;

    [[nodiscard]] DestinationRowHeader header() const;
    [[nodiscard]] CrosspointCell cellAt(qsizetype column) const;

    // For screen readers; a port without a label goes by its number.
    /// All that the header shows, in one text.
    [[nodiscard]] QString headerLabel() const;
    /// "{destination label} from {source label}"
    [[nodiscard]] QString cellLabel(qsizetype column) const;
    /// "Connected" or "Not connected".
    [[nodiscard]] QString cellValue(qsizetype column) const;
};

} // namespace corvane
