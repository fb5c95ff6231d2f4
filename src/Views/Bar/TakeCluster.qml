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

        SpokenText {
            anchors.right: parent.right
            visible: text !== ""
            width: Math.min(implicitWidth, 180)
            text: root.model.content.stagedSource
            font: GlassKit.subheadlineFont
        }
        SpokenText {
            id: target

            readonly property string lockedText: root.model.content.lockedText

            anchors.right: parent.right
            visible: text !== ""
            width: Math.min(implicitWidth, 180)
            text: lockedText === "" ? root.model.content.targetText : lockedText
            font: GlassKit.captionFont
            color: lockedText === "" ? GlassKit.colors.secondary : GlassKit.colors.tintText(GlassKit.colors.orange)

            Tip {
                text: target.truncated ? target.text : ""
            }
        }
        SpokenText {
            anchors.right: parent.right
            visible: text !== ""
            text: root.model.content.emptyHint
            font: GlassKit.captionFont
            color: GlassKit.colors.tintText(GlassKit.colors.orange)
        }
    }
    GlassButton {
        anchors.verticalCenter: parent.verticalCenter
        symbol: "xmark"
        available: root.model.content.canClear
        Accessible.name: "Clear staged route"
        onClicked: root.model.clearPending()
    }
    ProminentButton {
        anchors.verticalCenter: parent.verticalCenter
        text: "Take"
        symbol: "checkmark"
        available: root.model.content.canTake
        onClicked: root.model.confirmTake()
    }
}
