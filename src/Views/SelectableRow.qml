import QtQuick
import Corvane.Theme
import Corvane.Views

// One port in a pane of the list. Screen readers find it among the pane's rows.
Item {
    id: root

    required property int index
    required property selectableRow row
    required property color tint
    required property real chipWidth
    property bool focused: false
    // Changes of one port are seen to happen; that the item now stands for another port is none.
    property bool isSettled: true

    signal clicked
    signal doubleClicked
    signal badgeClicked
    signal menuWanted(point position)

    ListView.onPooled: isSettled = false
    ListView.onReused: isSettled = true

    Rectangle {
        anchors.fill: parent
        radius: GlassKit.selectableRowRadius
        color: GlassKit.faded(GlassKit.quaternary, 0.6)
        opacity: hover.hovered && !root.row.isCurrent && !root.row.isPending ? 1 : 0

        Behavior on opacity {
            enabled: root.isSettled

            NumberAnimation {
                duration: GlassKit.hoverDuration
                easing.type: Easing.OutQuad
            }
        }
    }
    Rectangle {
        anchors.fill: parent
        radius: GlassKit.selectableRowRadius
        color: GlassKit.faded(root.tint, root.row.isPending ? 0.18 : root.row.isCurrent ? 0.12 : 0)
        border.width: 2
        border.color: GlassKit.faded(root.tint, root.row.isPending ? 1 : 0)

        Behavior on color {
            enabled: root.isSettled

            ColorAnimation {
                duration: GlassKit.layoutSpringDuration
                easing: GlassKit.layoutSpring
            }
        }
        Behavior on border.color {
            enabled: root.isSettled

            ColorAnimation {
                duration: GlassKit.layoutSpringDuration
                easing: GlassKit.layoutSpring
            }
        }
    }
    HoverHandler {
        id: hover
    }
    TapHandler {
        onSingleTapped: root.clicked()
        onDoubleTapped: root.doubleClicked()
    }
    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: eventPoint => root.menuWanted(eventPoint.position)
    }
    NumberChip {
        id: chip

        anchors.verticalCenter: parent.verticalCenter
        x: 10
        width: root.chipWidth
        number: root.row.number
        tint: root.tint
        isCurrent: root.row.isCurrent
        isSettled: root.isSettled
    }
    GangBadge {
        anchors.horizontalCenter: chip.right
        anchors.verticalCenter: chip.top
        visible: root.row.hasBadge
        symbol: root.row.badgeSymbol
        tint: root.row.isCurrent ? GlassKit.tintText(root.tint) : GlassKit.secondary
        onClicked: root.badgeClicked()
    }
    Column {
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: chip.right
        anchors.leftMargin: 10
        anchors.right: marks.left
        anchors.rightMargin: marks.width > 0 ? 8 : 0
        spacing: 2

        PlainText {
            id: title

            width: parent.width
            text: root.row.title
            font: GlassKit.rowFont
            horizontalAlignment: Text.AlignLeft
        }
        PlainText {
            id: detail

            width: parent.width
            visible: text !== ""
            text: root.row.detail
            font: GlassKit.captionFont
            color: GlassKit.secondary
            horizontalAlignment: Text.AlignLeft
        }
    }
    Row {
        id: marks

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: 12
        spacing: 6

        Symbol {
            visible: root.row.locked
            name: "lock.fill"
            size: 15
            color: GlassKit.orange
        }
        Symbol {
            visible: root.row.showsCheckmark
            name: "checkmark"
            color: GlassKit.tintText(root.tint)
        }
    }
    Tip {
        text: title.truncated ? root.row.title : detail.truncated ? root.row.detail : ""
    }
    // Around the row and in no tint, so that it can't be taken for a staged one.
    FocusRing {
        shown: root.focused
        anchors.margins: -3
        radius: GlassKit.selectableRowRadius + 3
        border.color: GlassKit.text
    }
}
