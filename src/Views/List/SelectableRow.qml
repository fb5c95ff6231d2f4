import QtQuick
import Corvane.Theme
import Corvane.Views.List
import Corvane.Views.Shared

// One port in a pane of the list.
RowItem {
    id: root

    required property selectableRow row
    required property color tint
    required property real chipWidth

    signal badgeClicked

    radius: GlassKit.selectableRowRadius
    hoverColor: root.row.isCurrent || root.row.isPending || root.row.isHeld ? "transparent" : GlassKit.colors.faded(GlassKit.colors.quaternary, 0.6)
    // Around the row and in no tint, so that it can't be taken for a staged one.
    ringMargins: -3
    ringColor: GlassKit.colors.text

    Rectangle {
        anchors.fill: parent
        radius: root.radius
        color: GlassKit.colors.faded(root.tint, root.row.isPending ? 0.18 : root.row.isCurrent || root.row.isHeld ? 0.12 : 0)
        border.width: 2
        border.color: GlassKit.colors.faded(root.tint, root.row.isPending ? 1 : 0)

        Behavior on color {
            // What was felt is seen at once.
            enabled: root.isSettled && !root.row.isHeld

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
        tint: root.row.isCurrent ? GlassKit.colors.tintText(root.tint) : GlassKit.colors.secondary
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
            color: GlassKit.colors.secondary
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
            color: GlassKit.colors.orange
        }
        Symbol {
            visible: root.row.showsCheckmark
            name: "checkmark"
            color: GlassKit.colors.tintText(root.tint)
        }
    }
    Tip {
        text: title.truncated ? root.row.title : detail.truncated ? root.row.detail : ""
    }
}
