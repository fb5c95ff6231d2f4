import QtQuick
import Corvane.Theme

// A surface that floats over a screen. Whatever the pointer does on it ends there: nothing beneath is pressed, scrolled or hovered
// by accident.
GlassSurface {
    id: root

    SoftShadow {
        radius: root.radius
        z: -1
    }
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        hoverEnabled: true
        onWheel: event => event.accepted = true
    }
}
