import QtQuick
import QtQuick.Templates as T
import Corvane.Theme

// Tells one trouble. A click on it is all it asks for.
T.AbstractButton {
    id: root

    required property string message

    property real maximumWidth: Infinity

    implicitWidth: Math.min(Math.ceil(label.implicitWidth) + 52, maximumWidth)
    implicitHeight: label.implicitHeight + 18
    Accessible.role: Accessible.AlertMessage
    Accessible.name: message
    Accessible.ignored: !visible
    Accessible.onPressAction: clicked()

    // Opaque beneath the wash, so that it can be read over anything.
    background: FloatingSurface {
        border.width: 0

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: GlassKit.colors.faded(GlassKit.colors.red, 0.15)
            border.width: 1
            border.color: GlassKit.colors.faded(GlassKit.colors.red, 0.4)
        }
        FocusRing {
            shown: root.visualFocus
            radius: parent.radius + 2
        }
    }
    contentItem: Item {
        Row {
            anchors.centerIn: parent
            spacing: 8

            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                name: "exclamationmark.triangle.fill"
                color: label.color
            }
            PlainText {
                id: label

                width: root.width - 52
                text: root.message
                font: GlassKit.calloutFont
                color: GlassKit.colors.tintText(GlassKit.colors.red)
                Accessible.ignored: true
            }
        }
    }
}
