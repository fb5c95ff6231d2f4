import QtQuick
import Corvane.Theme

// The line between the two columns. It can be dragged, and moved with the arrow keys.
Item {
    id: root

    required property real minimum
    required property real maximum
    required property real position

    function moveTo(newPosition) {
        position = Math.max(minimum, Math.min(maximum, newPosition))
    }

    x: position - width / 2
    width: 9
    activeFocusOnTab: true
    Accessible.role: Accessible.Splitter
    Accessible.name: "Width of the list of routers"
    Accessible.focusable: true
    Keys.onLeftPressed: moveTo(position - 20)
    Keys.onRightPressed: moveTo(position + 20)

    Rectangle {
        anchors.horizontalCenter: parent.horizontalCenter
        width: root.activeFocus ? 3 : 1
        height: parent.height
        color: root.activeFocus ? GlassKit.colors.accent : GlassKit.colors.separator
    }
    HoverHandler {
        cursorShape: Qt.SplitHCursor
    }
    DragHandler {
        property real start

        target: null
        yAxis.enabled: false
        onActiveChanged: if (active) start = root.position
        onActiveTranslationChanged: if (active) root.moveTo(start + activeTranslation.x)
    }
}
