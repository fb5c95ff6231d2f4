import QtQuick
import QtQuick.Templates as T
import Corvane.Theme

// A question in the middle of the window, with everything else dimmed and out of reach. Its children stand between the title
// and the buttons. Escape cancels. Return accepts, unless that would destroy something: then it presses the button that has the
// keyboard, and to begin with that is the one that cancels.
T.Popup {
    id: root

    required property string title
    property string message
    required property string acceptText
    property bool destructive: false
    // Without the one it can only be cancelled, without the other only be acknowledged.
    property bool canAccept: true
    property bool canCancel: true
    default property alias content: extras.data

    signal accepted
    signal cancelled

    // A key held down since before the question is no answer to it.
    function act(event, isMeant, answer) {
        if (isMeant && !event.isAutoRepeat)
            answer()
    }

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(340, parent ? parent.width - 32 : 340)
    padding: 20
    modal: true
    focus: true
    closePolicy: T.Popup.NoAutoClose
    // Seen to have the keyboard, for it is what Return presses.
    onOpened: if (destructive) cancelButton.forceActiveFocus(Qt.TabFocusReason)
    onCanAcceptChanged: if (!canAccept) cancelButton.forceActiveFocus(Qt.TabFocusReason)
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding

    T.Overlay.modal: Rectangle {
        color: GlassKit.colors.shadow
    }
    background: GlassSurface {
        radius: 16
        color: GlassKit.colors.raised

        SoftShadow {
            radius: 16
            z: -1
        }
    }
    contentItem: FocusScope {
        implicitHeight: column.implicitHeight
        focus: true
        Accessible.role: Accessible.Dialog
        Accessible.name: root.title
        Accessible.description: root.message
        Keys.onEscapePressed: root.cancelled()
        Keys.onReturnPressed: event => root.act(event, root.canAccept && !root.destructive, root.accepted)
        Keys.onEnterPressed: event => root.act(event, root.canAccept && !root.destructive, root.accepted)

        Column {
            id: column

            width: parent.width
            spacing: 14

            PlainText {
                width: parent.width
                text: root.title
                font: GlassKit.titleFont
                wrapMode: Text.Wrap
                maximumLineCount: 3
            }
            SpokenText {
                visible: text !== ""
                width: parent.width
                text: root.message
                wrapMode: Text.Wrap
                maximumLineCount: 9
                color: GlassKit.colors.secondary
            }
            Item {
                id: extras

                width: parent.width
                height: childrenRect.height
                visible: children.length > 0
            }
            Row {
                anchors.right: parent.right
                spacing: GlassKit.controlSpacing

                GlassButton {
                    id: cancelButton

                    visible: root.canCancel
                    text: "Cancel"
                    onClicked: root.cancelled()
                }
                ProminentButton {
                    visible: root.canAccept
                    text: root.acceptText
                    accent: root.destructive ? GlassKit.colors.red : GlassKit.colors.accent
                    onClicked: root.accepted()
                }
            }
        }
    }
}
