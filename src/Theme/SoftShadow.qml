import QtQuick
import Corvane.Theme

// What a floating surface throws on what lies beneath. Rings of faint black instead of a shader, so that every renderer
// draws it.
Item {
    id: root

    required property real radius

    anchors.fill: parent
    Accessible.ignored: true

    Repeater {
        model: 6

        Rectangle {
            required property int index
            readonly property real spread: 2 + 3 * index

            anchors.fill: parent
            anchors.margins: -spread
            anchors.topMargin: 4 - spread
            anchors.bottomMargin: -4 - spread
            radius: root.radius + spread
            color: GlassKit.colors.faded(GlassKit.colors.shadow, 0.15 - 0.02 * index)
        }
    }
}
