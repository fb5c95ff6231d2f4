import QtQuick
import Corvane.Theme

// The lamp of a link with its word, on a wash of its colour.
Rectangle {
    id: root

    required property statusLook status

    implicitWidth: content.implicitWidth + 20
    implicitHeight: content.implicitHeight + 10
    radius: height / 2
    color: GlassKit.colors.faded(status.color, 0.15)
    Accessible.role: Accessible.StaticText
    Accessible.name: status.word
    Accessible.ignored: !visible

    Row {
        id: content

        anchors.centerIn: parent
        spacing: 6

        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: 7
            height: 7
            radius: 3.5
            color: root.status.color

            Loader {
                active: root.status.pulses
                anchors.centerIn: parent
                sourceComponent: PulseRing {
                    color: root.status.color
                }
            }
        }
        PlainText {
            text: root.status.word
            font: GlassKit.captionStrongFont
            color: GlassKit.colors.tintText(root.status.color)
            Accessible.ignored: true
        }
    }
}
