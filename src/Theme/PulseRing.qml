import QtQuick
import Corvane.Theme

// A ring that keeps bursting outward from a lamp. It takes no more room than the lamp and overflows it.
Item {
    id: root

    required property color color

    implicitWidth: 9
    implicitHeight: 9
    Accessible.ignored: true

    Rectangle {
        id: ring

        anchors.centerIn: parent
        width: 22
        height: 22
        radius: 11
        color: "transparent"
        border.width: 1.5
        border.color: root.color
        antialiasing: true
    }

    ParallelAnimation {
        running: root.visible
        loops: Animation.Infinite

        NumberAnimation {
            target: ring
            property: "scale"
            from: 0.41
            to: 1
            duration: GlassKit.pulseDuration
            easing.type: Easing.OutQuad
        }
        NumberAnimation {
            target: ring
            property: "opacity"
            from: 0.7
            to: 0
            duration: GlassKit.pulseDuration
            easing.type: Easing.OutQuad
        }
    }
}
