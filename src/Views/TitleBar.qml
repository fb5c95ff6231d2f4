import QtQuick
import Corvane.Theme
import Corvane.Views

// The name of the open router, and what is known beyond it.
Item {
    id: root

    required property CorvaneViewModel model

    implicitHeight: 52

    Column {
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: GlassKit.sideMargin
        spacing: 2

        PlainText {
            width: parent.width
            text: root.model.content.title
            font: GlassKit.titleFont
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        PlainText {
            width: parent.width
            visible: text !== ""
            text: root.model.content.subtitle
            font: GlassKit.captionFont
            color: GlassKit.secondary
        }
    }
    HairLine {
        anchors.bottom: parent.bottom
        width: parent.width
    }
}
