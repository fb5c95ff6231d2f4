import QtQuick
import QtQuick.Window
import Corvane.Theme

// A heading, a text and the button that closes the window.
EmptyState {
    id: root

    required property string heading
    required property string text

    symbol: "exclamationmark.triangle"
    tint: GlassKit.colors.orange
    title: heading
    description: text
    focus: true
    Accessible.role: Accessible.AlertMessage
    Keys.onEscapePressed: closeButton.clicked()
    Keys.onReturnPressed: closeButton.clicked()
    Keys.onEnterPressed: closeButton.clicked()

    ProminentButton {
        id: closeButton

        anchors.horizontalCenter: parent.horizontalCenter
        text: "Close"
        onClicked: root.Window.window.close()
    }
}
