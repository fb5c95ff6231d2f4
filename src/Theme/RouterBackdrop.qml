import QtQuick
import Corvane.Theme

// The window's background with a wash of the router's colour, from the top down to the middle.
Rectangle {
    id: root

    required property color tint

    color: GlassKit.colors.window

    Rectangle {
        anchors.fill: parent
        gradient: Gradient {
            GradientStop {
                position: 0
                color: GlassKit.colors.faded(root.tint, 0.16)
            }
            GradientStop {
                position: 0.5
                color: GlassKit.colors.faded(root.tint, 0)
            }
        }
    }
}
