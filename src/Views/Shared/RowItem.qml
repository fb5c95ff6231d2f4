import QtQuick
import Corvane.Theme
import Corvane.Views.Shared

// One row of a `RowList`; what it shows are its children. Screen readers find it among the list's rows.
Item {
    id: root

    required property int index
    readonly property RowArea rows: ListView.view ? ListView.view.parent as RowArea : null
    readonly property RowList list: rows ? rows.parent as RowList : null
    readonly property bool isCurrentRow: rows !== null && rows.currentRow === index
    // The keyboard is here, and that is to be seen.
    readonly property bool isFocused: isCurrentRow && rows.showsFocus
    readonly property bool isMenuOpen: rows !== null && rows.menuRow === index
    readonly property alias hovered: hover.hovered
    // The pointer or the keyboard is here: what can be done with the row is to be seen.
    readonly property bool showsButtons: hovered || isMenuOpen || (isCurrentRow && list.activeFocus)
    // Changes of one row are seen to happen; that the item now stands for another row is none.
    property bool isSettled: true
    property real radius: GlassKit.rowRadius
    property real ringMargins: 0
    property color ringColor: GlassKit.colors.accent
    // What is seen under the pointer.
    property color hoverColor: GlassKit.colors.faint

    x: list ? list.sidePadding : 0
    width: list ? list.width - 2 * x : 0
    opacity: rows !== null && rows.draggedRow === index ? 0.5 : 1
    ListView.onPooled: isSettled = false
    ListView.onReused: isSettled = true

    Rectangle {
        anchors.fill: parent
        radius: root.radius
        color: root.hoverColor
        opacity: root.hovered || root.isMenuOpen ? 1 : 0

        Behavior on opacity {
            enabled: root.isSettled

            NumberAnimation {
                duration: GlassKit.hoverDuration
                easing.type: Easing.OutQuad
            }
        }
    }
    HoverHandler {
        id: hover
    }
    TapHandler {
        onSingleTapped: root.rows.click(root.index)
        onDoubleTapped: root.rows.doubleClick(root.index)
    }
    TapHandler {
        acceptedButtons: Qt.RightButton
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onPressedChanged: if (pressed)
            root.rows.openMenu(root.index, root.mapToItem(root.rows, point.position))
    }
    DragHandler {
        enabled: root.rows !== null && root.rows.canMove(root.index)
        target: null
        onActiveChanged: active ? root.rows.beginDrag(root.index) : root.rows.endDrag(true)
        onCanceled: root.rows.endDrag(false)
        onCentroidChanged: if (active)
            root.rows.dragTo(root.mapToItem(root.rows, centroid.position))
    }
    // Beside the row's own children, and over them.
    FocusRing {
        shown: root.isFocused || root.isMenuOpen
        anchors.margins: root.ringMargins
        radius: root.radius - root.ringMargins
        border.color: root.ringColor
    }
}
