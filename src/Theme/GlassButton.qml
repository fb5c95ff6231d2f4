import QtQuick
import QtQuick.Templates as T
import Corvane.Theme

// A quiet button with a symbol, a text or both. With a symbol alone it needs an `Accessible.name`.
T.AbstractButton {
    id: root

    property string symbol
    property real symbolSize: 16
    property string tip
    property color tint: GlassKit.text
    property color fill: GlassKit.quaternary
    property real radius: height / 2

    implicitWidth: Math.max(implicitHeight, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: GlassKit.controlHeight
    leftPadding: text === "" ? 6 : symbol === "" ? 14 : 11
    rightPadding: text === "" ? 6 : 14
    spacing: 6
    opacity: enabled ? 1 : 0.4
    Accessible.name: text
    Accessible.description: tip
    // A screen reader's press reaches no button by itself.
    Accessible.onPressAction: if (enabled)
        clicked()

    background: Rectangle {
        radius: root.radius
        color: root.fill

        Rectangle {
            anchors.fill: parent
            radius: root.radius
            visible: root.enabled && (root.hovered || root.down)
            color: root.down ? GlassKit.separator : GlassKit.faint
        }
        FocusRing {
            shown: root.visualFocus
            radius: root.radius + 2
        }
        Tip {
            text: root.tip
        }
    }
    contentItem: Item {
        implicitWidth: row.implicitWidth

        Row {
            id: row

            anchors.centerIn: parent
            spacing: root.spacing

            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                visible: root.symbol !== ""
                name: root.symbol
                size: root.symbolSize
                color: root.tint
            }
            PlainText {
                anchors.verticalCenter: parent.verticalCenter
                visible: root.text !== ""
                text: root.text
                font: GlassKit.controlFont
                color: root.tint
                Accessible.ignored: true
            }
        }
    }
}
