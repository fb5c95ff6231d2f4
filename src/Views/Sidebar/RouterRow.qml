import QtQuick
import Corvane.Theme
import Corvane.Views.Shared
import Corvane.Views.Sidebar

// One line of the sidebar.
RowItem {
    id: root

    required property routerRow row

    implicitHeight: 46
    hoverColor: row.isSelected ? "transparent" : GlassKit.colors.faint

    Rectangle {
        anchors.fill: parent
        radius: root.radius
        visible: root.row.isSelected
        color: GlassKit.colors.selection
    }
    Rectangle {
        id: box

        anchors.verticalCenter: parent.verticalCenter
        x: 8
        width: 28
        height: 28
        radius: GlassKit.iconBoxRadius
        color: GlassKit.colors.faded(root.row.tint, 0.15)

        Symbol {
            anchors.centerIn: parent
            name: root.row.symbol
            size: 17
            color: root.row.tint
        }
    }
    Column {
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: box.right
        anchors.leftMargin: 10
        anchors.right: dot.left
        anchors.rightMargin: 12
        spacing: 2

        PlainText {
            width: parent.width
            text: root.row.name
            font: GlassKit.rowFont
        }
        PlainText {
            width: parent.width
            text: root.row.endpoint
            font: GlassKit.captionFont
            color: GlassKit.colors.secondary
        }
    }
    StatusDot {
        id: dot

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: 9
        status: root.row.status
    }
}
