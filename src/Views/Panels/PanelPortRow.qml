import QtQuick
import Corvane.Theme
import Corvane.Views.Panels
import Corvane.Views.Shared

// A row of the editor: a port with its number, which a click anywhere puts into the panel or takes out, or the head of a section.
RowItem {
    id: root

    required property panelPortRow row
    required property PanelAxisModel axis
    required property real numberWidth
    readonly property color tint: GlassKit.colors.tintText(axis.isSource ? GlassKit.colors.green : GlassKit.colors.orange)

    implicitHeight: row.isHead ? 36 : 30
    hoverColor: row.isHead ? "transparent" : GlassKit.colors.faint

    Loader {
        anchors.fill: parent
        sourceComponent: root.row.isHead ? head : port
    }
    Component {
        id: head

        Item {
            Symbol {
                id: arrow

                anchors.verticalCenter: parent.verticalCenter
                x: 8
                visible: !root.row.isAvailableHead
                name: root.axis.isSource ? "arrow.right" : "arrow.down"
                size: 13
                color: root.tint
            }
            PlainText {
                anchors.verticalCenter: parent.verticalCenter
                anchors.left: arrow.visible ? arrow.right : parent.left
                anchors.leftMargin: arrow.visible ? 6 : 8
                text: root.row.text
                font: GlassKit.captionStrongFont
                color: GlassKit.colors.secondary
            }
            Row {
                anchors.verticalCenter: parent.verticalCenter
                anchors.right: parent.right
                anchors.rightMargin: 6
                spacing: 6
                visible: root.row.isAvailableHead

                PanelAxisButton {
                    text: "All"
                    onClicked: root.axis.chooseAll()
                }
                PanelAxisButton {
                    text: "None"
                    onClicked: root.axis.chooseNone()
                }
            }
        }
    }
    Component {
        id: port

        Item {
            PlainText {
                id: number

                anchors.verticalCenter: parent.verticalCenter
                x: 8
                width: root.numberWidth
                text: root.row.number
                horizontalAlignment: Text.AlignRight
                font: GlassKit.numberFont
                color: root.row.isMissing ? mark.color : root.row.isChosen ? root.tint : GlassKit.colors.secondary
            }
            PlainText {
                id: text

                anchors.verticalCenter: parent.verticalCenter
                anchors.left: number.right
                anchors.leftMargin: 12
                width: Math.min(implicitWidth, sign.x - x - 8 - (mark.visible ? 20 : 0))
                text: root.row.text
                font: root.row.isMissing ? GlassKit.calloutFont : GlassKit.bodyFont
                color: root.row.isMissing ? mark.color : GlassKit.colors.text
            }
            Symbol {
                id: mark

                anchors.verticalCenter: parent.verticalCenter
                anchors.left: text.right
                anchors.leftMargin: 6
                visible: root.row.isMissing
                name: "exclamationmark.triangle"
                size: 14
                color: GlassKit.colors.tintText(GlassKit.colors.orange)
            }
            Symbol {
                id: sign

                anchors.verticalCenter: parent.verticalCenter
                x: parent.width - width - 8
                name: root.row.isChosen ? "minus.circle.fill" : "plus.circle.fill"
                size: 16
                color: root.hovered || root.isFocused ? GlassKit.colors.accent : GlassKit.colors.secondary
            }
        }
    }
}
