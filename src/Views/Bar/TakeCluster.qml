import QtQuick
import Corvane.Theme
import Corvane.Views.Bar

// What is staged, and the buttons that clear it or cut it.
Row {
    id: root

    required property ControlBarModel model

    spacing: 12

    Column {
        anchors.verticalCenter: parent.verticalCenter
        spacing: 1

        PlainText {
            anchors.right: parent.right
            visible: text !== ""
            width: Math.min(implicitWidth, 180)
            text: root.model.content.stagedSource
            font: GlassKit.subheadlineFont
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            Accessible.ignored: !visible
        }
        PlainText {
            anchors.right: parent.right
            visible: text !== ""
            width: Math.min(implicitWidth, 180)
            text: root.model.content.targetText
            font: GlassKit.captionFont
            color: GlassKit.colors.secondary
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            Accessible.ignored: !visible
        }
        PlainText {
            anchors.right: parent.right
            visible: text !== ""
            text: root.model.content.emptyHint
            font: GlassKit.captionFont
            color: GlassKit.colors.tintText(GlassKit.colors.orange)
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            Accessible.ignored: !visible
        }
    }
    GlassButton {
        anchors.verticalCenter: parent.verticalCenter
        symbol: "xmark"
        enabled: root.model.content.canClear
        Accessible.name: "Clear staged route"
        onClicked: root.model.clearPending()
    }
    ProminentButton {
        anchors.verticalCenter: parent.verticalCenter
        text: "Take"
        symbol: "checkmark"
        enabled: root.model.content.canTake
        onClicked: root.model.confirmTake()
    }
}
