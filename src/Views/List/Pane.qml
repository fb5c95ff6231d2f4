import QtQuick
import Corvane.Theme
import Corvane.Views.List
import Corvane.Views.Shared

// One half of the list: a header, and a row for each port that scrolls below it.
FocusScope {
    id: root

    required property PaneModel model
    // What floats over the lower edge.
    required property real clearance
    readonly property real rowHeight: Math.ceil(Math.max(26, titleMetrics.height + 2 + detailMetrics.height)) + 16
    readonly property real chipWidth: Math.max(30, Math.ceil(numberMetrics.advanceWidth) + 10)

    function takeKeyboard() {
        rows.takeKeyboard()
    }

    Rectangle {
        anchors.fill: parent
        radius: GlassKit.paneRadius
        color: GlassKit.colors.faded(GlassKit.colors.surface, 0.7)
        border.width: 1
        border.color: GlassKit.colors.separator
    }
    PaneHeader {
        id: header

        x: GlassKit.sideMargin
        y: 12
        width: parent.width - 2 * GlassKit.sideMargin
        height: GlassKit.controlHeight
        model: root.model
        onKeyboardFreed: root.takeKeyboard()
    }
    HairLine {
        anchors.bottom: rows.top
        x: 1
        width: parent.width - 2
        opacity: 0.5
    }
    FontMetrics {
        id: titleMetrics

        font: GlassKit.rowFont
    }
    FontMetrics {
        id: detailMetrics

        font: GlassKit.captionFont
    }
    TextMetrics {
        id: numberMetrics

        font: GlassKit.numberFont
        text: root.model.content.widestNumber
    }
    RowList {
        id: rows

        anchors.top: header.bottom
        anchors.topMargin: header.y
        anchors.bottom: parent.bottom
        // The corners of the pane stay round.
        anchors.bottomMargin: 2
        width: parent.width
        focus: true
        model: root.model as RowListModel
        label: root.model.content.title
        // Return takes what is staged.
        returnPresses: false
        sidePadding: 10
        topPadding: 10
        bottomPadding: 10
        spacing: 6
        clearance: root.clearance
        delegate: SelectableRow {
            height: root.rowHeight
            chipWidth: root.chipWidth
            tint: root.model.content.tint
            onBadgeClicked: root.model.clickBadge(index)
        }
        // Beside the rows and the ring around them.
        scrollBar {
            anchors.rightMargin: 1
            width: 8
            y: 4
            height: rows.height - rows.clearance - 8
        }
    }
}
