import QtQuick
import Corvane.App
import Corvane.Theme

// What could not be written, for as long as it isn't. At the foot of the sidebar: it moves nothing that routes, and is there
// whichever router is open.
FocusScope {
    id: root

    required property ContentViewModel model
    // Empty while there is none.
    readonly property string message: model.saveProblem

    implicitHeight: message === "" ? 0 : Math.max(label.implicitHeight, dismissButton.implicitHeight) + 2 * 12
    visible: message !== ""
    Accessible.role: Accessible.AlertMessage
    Accessible.name: message
    Accessible.ignored: !visible
    onVisibleChanged: if (!visible)
        keyboard.giveBack()

    SpokenAlert {
        message: root.visible ? root.message : ""
    }
    KeyboardReturn {
        id: keyboard
    }
    Rectangle {
        anchors.fill: parent
        color: GlassKit.colors.sidebar

        Rectangle {
            anchors.fill: parent
            color: GlassKit.colors.faded(GlassKit.colors.red, 0.15)
        }
        HairLine {
            width: parent.width
        }
    }
    Symbol {
        id: symbol

        x: 18
        anchors.verticalCenter: label.verticalCenter
        name: "exclamationmark.triangle.fill"
        color: label.color
    }
    PlainText {
        id: label

        anchors.verticalCenter: parent.verticalCenter
        anchors.left: symbol.right
        anchors.leftMargin: 10
        anchors.right: dismissButton.left
        anchors.rightMargin: 6
        text: root.message
        font: GlassKit.calloutFont
        color: GlassKit.colors.tintText(GlassKit.colors.red)
        wrapMode: Text.Wrap
        maximumLineCount: 5
        Accessible.ignored: true

        Tip {
            text: label.truncated ? root.message : ""
        }
    }
    GlassButton {
        id: dismissButton

        anchors.right: parent.right
        anchors.rightMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        symbol: "xmark"
        fill: "transparent"
        tint: label.color
        tip: "Dismiss"
        Accessible.name: "Dismiss"
        onClicked: root.model.dismissSaveProblem()
    }
}
