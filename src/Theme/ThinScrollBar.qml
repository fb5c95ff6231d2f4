import QtQuick
import QtQuick.Templates as T
import Corvane.Theme

// Says how much of something long is in view, and moves it. All lengths in the same unit.
T.ScrollBar {
    id: root

    required property real extent
    required property real window
    required property real offset

    signal moved(real offset)

    implicitWidth: 10
    implicitHeight: 10
    padding: 2
    visible: extent > window + 0.5
    size: Math.min(1, window / extent)
    minimumSize: 32 / Math.max(32, orientation === Qt.Vertical ? height : width)
    position: offset / extent
    Accessible.ignored: true

    onPositionChanged: if (pressed)
        moved(position * extent)

    contentItem: Rectangle {
        radius: 3
        color: GlassKit.colors.faded(GlassKit.colors.text, root.pressed ? 0.5 : root.hovered ? 0.4 : 0.25)
    }
}
