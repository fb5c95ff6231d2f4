import QtQuick
import Corvane.Theme
import Corvane.Views.Bar
import Corvane.Views.Grid
import Corvane.Views.List
import Corvane.Views.Workspace

// A connected router at work: what it is, its grid or list, and the bar that floats over it.
FocusScope {
    id: root

    required property CorvaneViewModel model

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
    FocusScope {
        id: routingArea

        anchors.top: headerRow.bottom
        anchors.topMargin: 4
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
    ErrorBanner {
        id: banner

        anchors.horizontalCenter: parent.horizontalCenter
        maximumWidth: parent.width - 2 * GlassKit.sideMargin
        y: root.model.banner.content.isShown ? 8 : -height - 12
        opacity: root.model.banner.content.isShown ? 1 : 0
        visible: opacity > 0
        message: root.model.banner.content.message
        onClicked: root.model.banner.dismiss()

        Behavior on y {
            NumberAnimation {
                duration: GlassKit.bannerDuration
                easing.type: Easing.OutCubic
            }
        }
        Behavior on opacity {
            NumberAnimation {
                duration: GlassKit.bannerDuration
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
