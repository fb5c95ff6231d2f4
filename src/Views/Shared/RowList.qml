import QtQuick
import Corvane.Theme
import Corvane.Views.Shared

// A list of rows: what `model` says, each row drawn by `delegate`, a `RowItem`. Keys, menu, wheel, screen reader and the place of the
// keyboard are the same wherever rows are listed; see `RowListModel` for what a list has to tell, and `RowArea` for what it is told.
FocusScope {
    id: root

    property alias model: area.model
    property alias delegate: list.delegate
    // What screen readers call the list.
    property alias label: area.label
    // Return, too, presses a row.
    property alias returnPresses: area.returnPresses
    property alias speaksOfButtons: area.speaksOfButtons
    property alias spacing: list.spacing
    // Beside the rows.
    property real sidePadding: 0
    // Above and below them.
    property real topPadding: 0
    property real bottomPadding: 0
    // What floats over the lower edge; the last row scrolls clear of it.
    property real clearance: 0
    property alias scrollBar: bar
    readonly property real contentHeight: list.contentHeight
    // How rows come and make room.
    property alias add: list.add
    property alias displaced: list.displaced
    readonly property alias area: area

    function takeKeyboard() {
        area.takeKeyboard()
    }

    RowArea {
        id: area

        anchors.fill: parent
        focus: true
        view: list
        Accessible.role: Accessible.List
        onMenuOpened: point => {
            menu.active = true
            menu.item.popup(area, point.x, point.y)
        }

        ListView {
            id: list

            readonly property RowArea area: area
            readonly property real sidePadding: root.sidePadding
            // The list's own focus, or that of something within a row.
            readonly property bool isActive: root.activeFocus

            anchors.fill: parent
            topMargin: root.topPadding
            bottomMargin: root.bottomPadding + root.clearance
            clip: true
            reuseItems: true
            boundsBehavior: Flickable.StopAtBounds
            keyNavigationEnabled: false
            highlightFollowsCurrentItem: false
            currentIndex: -1
            model: area.model

            WheelHandler {
                acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
                target: null
                onWheel: event => area.turnWheel(event.pixelDelta, event.angleDelta)
            }
        }
        // Where a row that is being dragged would be put.
        Rectangle {
            x: root.sidePadding
            y: area.dropLine - 1
            width: parent.width - 2 * root.sidePadding
            height: 2
            radius: 1
            visible: area.draggedRow >= 0
            color: GlassKit.colors.accent
        }
    }
    ThinScrollBar {
        id: bar

        anchors.right: parent.right
        height: parent.height
        orientation: Qt.Vertical
        extent: list.contentHeight + list.topMargin + list.bottomMargin
        window: list.height
        offset: list.contentY - list.originY + list.topMargin
        onMoved: offset => list.contentY = offset + list.originY - list.topMargin
    }
    // Made when first asked for.
    Loader {
        id: menu

        active: false
        sourceComponent: ActionMenu {
            readonly property bool isStale: area.menuRow < 0

            actions: area.menu
            onChosen: text => area.chooseInMenu(text)
            onClosed: area.closeMenu()
            onIsStaleChanged: if (isStale) close()
        }
    }
}
