import QtQuick
import Corvane.Theme
import Corvane.Views.Grid
import Corvane.Views.Shared

// The crosspoint grid with its scroll bars, tool tip and context menu.
FocusScope {
    id: root

    property alias model: grid.model
    property alias cellSize: grid.cellSize
    property alias controlBarClearance: grid.controlBarClearance

    CrosspointMatrixView {
        id: grid

        anchors.fill: parent
        focus: true
        Accessible.role: Accessible.Grouping

        onMenuRequested: (point, actions) => {
            menu.active = true
            menu.item.actions = actions
            menu.item.popup(grid, point.x, point.y)
        }
    }
    ThinScrollBar {
        anchors.right: parent.right
        y: grid.fieldArea.y
        height: grid.fieldArea.height
        orientation: Qt.Vertical
        extent: grid.contentHeight
        window: grid.height
        offset: grid.contentY
        onMoved: offset => grid.contentY = offset
    }
    ThinScrollBar {
        anchors.bottom: parent.bottom
        x: grid.fieldArea.x
        width: grid.fieldArea.width
        orientation: Qt.Horizontal
        extent: grid.contentWidth
        window: grid.width
        offset: grid.contentX
        onMoved: offset => grid.contentX = offset
    }
    Item {
        x: grid.toolTipArea.x
        y: grid.toolTipArea.y
        width: grid.toolTipArea.width
        height: grid.toolTipArea.height

        ToolTipBubble {
            text: grid.toolTip
            visible: text !== ""
        }
    }
    // Made for the first menu.
    Loader {
        id: menu

        active: false
        sourceComponent: ActionMenu {
            onChosen: text => grid.chooseInMenu(text)
        }
    }
}
