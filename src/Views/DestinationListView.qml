import QtQuick
import Corvane.Theme
import Corvane.Views

// The list: sources on the left, destinations on the right, whichever of them leads.
FocusScope {
    id: root

    required property MatrixController controller
    required property real controlBarClearance
    readonly property real paneWidth: Math.floor((width - 2 * GlassKit.sideMargin - 14) / 2)

    DestinationListModel {
        id: list

        controller: root.controller
        dark: GlassKit.isDark
    }
    Pane {
        id: sources

        x: GlassKit.sideMargin
        y: 8
        width: root.paneWidth
        height: root.height - 16
        focus: true
        clearance: root.controlBarClearance
        model: list.sources
        Keys.onRightPressed: destinations.takeKeyboard()
    }
    Pane {
        id: destinations

        x: root.width - GlassKit.sideMargin - width
        y: 8
        width: root.paneWidth
        height: root.height - 16
        clearance: root.controlBarClearance
        model: list.destinations
        Keys.onLeftPressed: sources.takeKeyboard()
    }
}
