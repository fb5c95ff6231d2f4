import QtQuick
import Corvane.Theme

// Gives its parent a tool tip. The bubble is only made when the pointer first rests there.
Item {
    id: root

    property string text

    anchors.fill: parent
    Accessible.ignored: true

    HoverHandler {
        id: hover
    }
    Loader {
        anchors.fill: parent
        active: hover.hovered && root.text !== ""
        sourceComponent: Item {
            ToolTipBubble {
                text: root.text
                visible: hover.hovered
            }
        }
    }
}
