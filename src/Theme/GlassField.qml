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
