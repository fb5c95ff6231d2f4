import QtQuick
import Corvane.Theme

// Shows where the keyboard is. Put it into what has the focus, with that one's `radius`.
Rectangle {
    property bool shown: false

    anchors.fill: parent
    anchors.margins: -2
    visible: shown
    color: "transparent"
    border.width: 2
    border.color: GlassKit.colors.accent
    antialiasing: true
    z: 1
}
