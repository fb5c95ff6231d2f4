import QtQuick
import Corvane.Theme
import Corvane.Views.Bar
import Corvane.Views.Grid
import Corvane.Views.List
import Corvane.Views.Panels
import Corvane.Views.Salvos
import Corvane.Views.Workspace

// A connected router at work: what it is, its grid or list, and the bar that floats over it.
FocusScope {
    id: root

    required property WorkspaceModel model

    Item {
        id: headerRow

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: GlassKit.sideMargin
        anchors.rightMargin: GlassKit.sideMargin
        y: 8
        height: Math.max(header.implicitHeight, modes.implicitHeight)

        DeviceHeader {
            id: header

            anchors.left: parent.left
            anchors.right: modes.left
            anchors.rightMargin: 12
            height: parent.height
            model: root.model.header
        }
        RoutingModeCluster {
            id: modes

            anchors.right: parent.right
            height: parent.height
            model: root.model.modes
        }
    }
    Loader {
        id: panelTabs

        anchors.top: headerRow.bottom
        anchors.topMargin: active ? 6 : 0
        width: parent.width
        height: active ? implicitHeight : 0
        active: root.model.panels.content.hasPanels
        sourceComponent: PanelTabStrip {
            model: root.model.panels
        }
    }
    Loader {
        id: salvoStrip

        anchors.top: panelTabs.bottom
        anchors.topMargin: panelTabs.active ? 4 : active ? 8 : 4
        width: parent.width
        height: active ? implicitHeight : 0
        active: root.model.salvoStrip.content.isShown
        sourceComponent: SalvoStrip {
            model: root.model.salvoStrip
            onManagerOpened: root.model.showingSalvos = true
        }
    }
    FocusScope {
        id: routingArea

        anchors.top: salvoStrip.bottom
        anchors.topMargin: salvoStrip.active ? 2 : 0
        anchors.bottom: parent.bottom
        width: parent.width
        focus: true
        // From the grid and the panes; all other controls answer their own keys.
        Keys.onReturnPressed: event => controlBar.answerReturn(event)
        Keys.onEnterPressed: event => controlBar.answerReturn(event)

        Loader {
            anchors.fill: parent
            active: root.model.content.showsMatrix
            focus: active
            anchors.leftMargin: GlassKit.sideMargin
            anchors.topMargin: 8
            sourceComponent: CrosspointGrid {
                model: root.model.grid
                cellSize: root.model.zoom.cellSize
                controlBarClearance: root.model.controlBarClearance
                focus: true
            }
        }
        Loader {
            anchors.fill: parent
            active: root.model.content.showsList
            focus: active
            sourceComponent: DestinationListView {
                model: root.model.list
                controlBarClearance: root.model.controlBarClearance
                focus: true
            }
        }
        Loader {
            anchors.fill: parent
            active: root.model.content.showsMismatch
            focus: active
            sourceComponent: PanelMismatch {
                model: root.model
            }
        }
    }
    ControlBar {
        id: controlBar

        anchors.bottom: parent.bottom
        anchors.bottomMargin: 10
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: GlassKit.sideMargin
        anchors.rightMargin: GlassKit.sideMargin
        height: implicitHeight
        model: root.model.controlBar
        onHeightChanged: root.model.controlBarHeight = height
    }
    // It takes the place of the device's header, where there is nothing to press. Clipped, for while it slides in it is not to
    // cover the toolbar.
    Item {
        x: headerRow.x + header.x
        width: header.width
        height: headerRow.y + headerRow.height + 24
        clip: banner.y < 0

        ErrorBanner {
            id: banner

            readonly property real shownAt: headerRow.y + Math.round((headerRow.height - height) / 2)

            x: Math.round((parent.width - width) / 2)
            y: isShown ? shownAt : -height
            width: header.surfaceWidth
            height: Math.max(implicitHeight, headerRow.height)
            message: root.model.banner.message
            onDismiss: root.model.banner.dismiss()
            onIsBeingReadChanged: root.model.banner.setBeingRead(isBeingRead)

            Behavior on y {
                NumberAnimation {
                    duration: GlassKit.bannerDuration
                    easing.type: Easing.OutCubic
                }
            }
        }
    }
    KeyboardKeeper {
        scope: root
        heir: routingArea
    }
    Shortcut {
        sequence: "Ctrl+0"
        onActivated: root.model.showFullRouter()
    }
    Repeater {
        model: 9

        Item {
            id: key

            required property int index

            Shortcut {
                sequence: "Ctrl+" + (key.index + 1)
                onActivated: root.model.showPanel(key.index + 1)
            }
        }
    }
}
