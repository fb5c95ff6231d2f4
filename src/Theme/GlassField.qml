import QtQuick
import QtQuick.Templates as T
import Corvane.Theme

// A line of text to be edited.
T.TextField {
    id: root

    implicitWidth: 200
    implicitHeight: 30
    leftPadding: 10
    rightPadding: 10
    verticalAlignment: TextInput.AlignVCenter
    font: GlassKit.bodyFont
    color: GlassKit.colors.text
    selectionColor: GlassKit.colors.tintFill(GlassKit.colors.accent)
    selectedTextColor: GlassKit.colors.onTint
    selectByMouse: true
    Accessible.role: Accessible.EditableText

    PlainText {
        anchors.fill: parent
        anchors.leftMargin: root.leftPadding
        anchors.rightMargin: root.rightPadding
        verticalAlignment: Text.AlignVCenter
        visible: root.text === "" && root.preeditText === ""
        text: root.placeholderText
        font: root.font
        color: GlassKit.colors.secondary
    }
    background: Rectangle {
        radius: GlassKit.controlRadius
        color: GlassKit.colors.quaternary
        border.width: 1
        border.color: GlassKit.colors.separator

        FocusRing {
            shown: root.activeFocus
            radius: GlassKit.controlRadius + 2
        }
    }
}
