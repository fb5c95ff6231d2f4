import QtQuick
import Corvane.Theme

// The number of a port, loud when the port is a current one.
Rectangle {
    id: root

    required property string number
    required property color tint
    required property bool isCurrent
    // Only then a change is seen to happen.
    required property bool isSettled

    implicitHeight: 26
    radius: GlassKit.iconBoxRadius
    color: GlassKit.colors.faded(GlassKit.colors.quaternary, 0.5)

    TintShape {
        anchors.fill: parent
        radius: root.radius
        color: GlassKit.colors.tintFill(root.tint)
        opacity: root.isCurrent ? 1 : 0
        visible: opacity > 0

        Behavior on opacity {
            enabled: root.isSettled

            SpringyAnimation {}
        }
    }
    PlainText {
        anchors.centerIn: parent
        text: root.number
        font: GlassKit.numberFont
        color: root.isCurrent ? GlassKit.colors.onTint : GlassKit.colors.secondary
    }
}
