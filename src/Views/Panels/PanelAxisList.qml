import QtQuick
import Corvane.Theme
import Corvane.Views.Panels
import Corvane.Views.Shared

// The ports of one kind: those in the panel, then those that could be.
RowList {
    id: root

    required property PanelAxisModel axis

    model: axis as RowListModel
    label: axis.label
    speaksOfButtons: true
    sidePadding: 8
    bottomPadding: 8
    delegate: PanelPortRow {
        axis: root.axis
        numberWidth: Math.max(24, Math.ceil(widest.advanceWidth))
    }

    TextMetrics {
        id: widest

        font: GlassKit.numberFont
        text: root.axis.widestNumber
    }
}
