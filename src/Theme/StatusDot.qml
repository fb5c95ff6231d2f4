import QtQuick
import Corvane.Theme

// The lamp of a link: it glows when connected and pulses while connecting.
Item {
    id: root

    required property statusLook status

    implicitWidth: 9
    implicitHeight: 9
    Accessible.role: Accessible.StaticText
    Accessible.name: status.word
    Accessible.ignored: !visible

    // A soft glow without a shader, so that it looks the same on every renderer.
    Repeater {
        model: root.status.glows ? 4 : 0

        Rectangle {
            required property int index

            anchors.centerIn: parent
            // Odd, like the lamp, so that they share its centre.
            width: 11 + 4 * index
            height: width
            radius: width / 2
            color: GlassKit.colors.faded(root.status.color, 0.7 / (3 + 3 * index))
        }
    }
    Loader {
        active: root.status.pulses
        anchors.centerIn: parent
        sourceComponent: PulseRing {
            color: root.status.color
        }
    }
    Rectangle {
        anchors.fill: parent
        radius: width / 2
        color: root.status.color
        antialiasing: true

        // Half a pixel of 30 % white, as whole pixels can tell it.
        Rectangle {
            anchors.fill: parent
            radius: width / 2
            color: "transparent"
            border.width: 1
            border.color: GlassKit.colors.faded(GlassKit.colors.onTint, 0.15)
            antialiasing: true
        }
    }
}
