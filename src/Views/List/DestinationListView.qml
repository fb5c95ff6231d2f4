import QtQuick
import Corvane.Theme
import Corvane.Views.List

// The list: sources on the left, destinations on the right, whichever of them leads.
FocusScope {
    id: root

    required property DestinationListModel model
    required property real controlBarClearance
    readonly property real paneWidth: Math.floor((width - 2 * GlassKit.sideMargin - 14) / 2)

    Pane {
        id: sources

        x: GlassKit.sideMargin
        y: 8
        width: root.paneWidth
        height: root.height - 16
        focus: true
        clearance: root.controlBarClearance
        model: root.model.sources
        Keys.onRightPressed: destinations.takeKeyboard()
    }
    Pane {
        id: destinations

        x: root.width - GlassKit.sideMargin - width
        y: 8
        width: root.paneWidth
        height: root.height - 16
        clearance: root.controlBarClearance
        model: root.model.destinations
        Keys.onLeftPressed: sources.takeKeyboard()
    }
}
