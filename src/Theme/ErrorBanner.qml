import QtQuick
import Corvane.Theme

// Tells one trouble, as wide as it is told to be. A click on it is all it asks for.
Item {
    id: root

    // Empty while there is none.
    required property string message
    readonly property bool isShown: message !== ""
    // The pointer or the keyboard rests on it.
    readonly property bool isBeingRead: isShown && (pointer.hovered || activeFocus)
    // They stay while it leaves.
    property string words

    signal dismiss

    implicitHeight: label.implicitHeight + (label.lineCount > 2 ? 12 : 18)
    visible: isShown || opacity > 0
    opacity: isShown ? 1 : 0
    activeFocusOnTab: true
    Accessible.role: Accessible.AlertMessage
    Accessible.name: words
    Accessible.ignored: !visible
    Accessible.focusable: true
    Accessible.onPressAction: dismiss()
    Keys.onShortcutOverride: event => event.accepted = event.key === Qt.Key_Return || event.key === Qt.Key_Enter
    Keys.onPressed: event => {
        event.accepted = [Qt.Key_Return, Qt.Key_Enter, Qt.Key_Space, Qt.Key_Escape].includes(event.key)
        if (event.accepted && !event.isAutoRepeat)
            dismiss()
    }
    onMessageChanged: {
        if (message !== "")
            words = message
        else
            keyboard.giveBack()
    }

    Behavior on opacity {
        NumberAnimation {
            duration: GlassKit.bannerDuration
        }
    }

    HoverHandler {
        id: pointer
    }
    SpokenAlert {
        message: root.opacity > 0 ? root.message : ""
    }
    KeyboardReturn {
        id: keyboard
    }
    // Opaque beneath the wash, so that it can be read over anything.
    GlassSurface {
        id: surface

        anchors.fill: parent
        border.width: 0

        SoftShadow {
            radius: surface.radius
            z: -1
        }
        Rectangle {
            anchors.fill: parent
            radius: surface.radius
            color: GlassKit.colors.faded(GlassKit.colors.red, 0.15)
            border.width: 1
            border.color: GlassKit.colors.faded(GlassKit.colors.red, 0.4)
        }
        FocusRing {
            shown: root.activeFocus
            radius: surface.radius + 2
        }
    }
    Symbol {
        id: symbol

        anchors.verticalCenter: parent.verticalCenter
        x: GlassKit.sideMargin
        name: "exclamationmark.triangle.fill"
        size: 20
        color: label.color
    }
    PlainText {
        id: label

        anchors.verticalCenter: parent.verticalCenter
        anchors.left: symbol.right
        anchors.leftMargin: 12
        anchors.right: parent.right
        anchors.rightMargin: GlassKit.sideMargin
        text: root.words
        font: GlassKit.calloutFont
        color: GlassKit.colors.tintText(GlassKit.colors.red)
        wrapMode: Text.Wrap
        maximumLineCount: 3
        Accessible.ignored: true
    }
    // What happens on it ends there.
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        hoverEnabled: true
        onClicked: event => {
            if (event.button === Qt.LeftButton)
                root.dismiss()
        }
        onWheel: event => event.accepted = true
    }
    Tip {
        text: label.truncated ? root.words : ""
    }
}
