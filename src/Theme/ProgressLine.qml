import QtQuick
import Corvane.Theme

// How far something has come that takes its time. Keeps its place while it is not shown, so that nothing jumps.
Item {
    id: root

    required property bool isShown
    // 0 to 1.
    required property double fraction
    // The same in words, for those who can't see it.
    required property string text
    property color tint: GlassKit.colors.accent

    implicitWidth: 180
    implicitHeight: 3

    Rectangle {
        anchors.fill: parent
        visible: root.isShown
        radius: height / 2
        color: GlassKit.colors.quaternary
        Accessible.role: Accessible.ProgressBar
        Accessible.name: root.text

        Rectangle {
            width: parent.width * root.fraction
            height: parent.height
            radius: parent.radius
            color: root.tint

            Behavior on width {
                NumberAnimation {
                    duration: GlassKit.hoverDuration
                }
            }
        }
    }
}
