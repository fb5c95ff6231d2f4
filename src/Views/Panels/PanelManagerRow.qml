import QtQuick
import Corvane.Theme
import Corvane.Views.Panels
import Corvane.Views.Shared

// One panel in the manager. It is dragged to its place by any point.
RowItem {
    id: root

    required property panelItem row
    required property PanelManagerModel manager

    implicitHeight: 50

    Symbol {
        id: symbol

        anchors.verticalCenter: parent.verticalCenter
        x: 10
        name: "rectangle.grid.1x2"
        size: 20
        color: GlassKit.colors.accent
    }
    Column {
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: symbol.right
        anchors.leftMargin: 14
        anchors.right: buttons.left
        anchors.rightMargin: 12
        spacing: 2

        Row {
            width: parent.width
            spacing: 8

            PlainText {
                id: name

                anchors.verticalCenter: parent.verticalCenter
                width: Math.min(implicitWidth, parent.width - (badge.visible ? badge.width + parent.spacing : 0))
                text: root.row.name
                font: GlassKit.rowFont
            }
            Rectangle {
                id: badge

                anchors.verticalCenter: parent.verticalCenter
                visible: root.row.isActive
                width: active.implicitWidth + 2 * 8
                height: active.implicitHeight + 2 * 3
                radius: height / 2
                color: GlassKit.colors.faded(GlassKit.colors.accent, 0.18)

                PlainText {
                    id: active

                    anchors.centerIn: parent
                    text: "Active"
                    font: GlassKit.captionStrongFont
                    color: GlassKit.colors.tintText(GlassKit.colors.accent)
                }
            }
        }
        PlainText {
            width: parent.width
            text: root.row.size
            font: GlassKit.captionFont
            color: GlassKit.colors.secondary
        }
    }
    RowButtons {
        id: buttons

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: 8
        row: root
        actions: root.manager.buttonsOf(root.index)
    }
    Tip {
        text: name.truncated ? root.row.name : ""
    }
}
