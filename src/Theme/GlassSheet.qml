import QtQuick
import QtQuick.Templates as T
import Corvane.Theme

// A screen over the screen, with everything else dimmed and out of reach: a head with its title and actions, and its children
// below. Escape dismisses it, Tab stays inside, and the keyboard goes back to where it was. As high as `contentLength` needs;
// where the window has little room it fills the workspace.
T.Popup {
    id: root

    required property string title
    // How high the content wants to be.
    required property real contentLength
    // The screen that it belongs to.
    required property Item workspace
    // At the end of the head, from left to right.
    property alias actions: actionRow.data
    property real preferredWidth: 640
    default property alias content: body.data
    readonly property real headHeight: 52
    readonly property bool fillsWorkspace: parent !== null && (parent.width < 900 || parent.height < 640)
    // Read anew whenever the workspace is laid out.
    readonly property point workspaceOrigin: workspace.width + workspace.height > 0 ? workspace.mapToItem(null, 0, 0) : Qt.point(0, 0)

    signal dismissed

    parent: T.Overlay.overlay
    x: fillsWorkspace ? workspaceOrigin.x : Math.round((parent.width - width) / 2)
    y: fillsWorkspace ? workspaceOrigin.y : Math.round((parent.height - height) / 2)
    width: fillsWorkspace ? workspace.width : preferredWidth
    height: fillsWorkspace ? workspace.height : Math.min(headHeight + 1 + contentLength + body.anchors.bottomMargin, parent.height - 56)
    modal: true
    focus: true
    visible: true
    closePolicy: T.Popup.NoAutoClose

    T.Overlay.modal: Rectangle {
        color: GlassKit.colors.shadow
    }
    background: GlassSurface {
        radius: root.fillsWorkspace ? 0 : 16
        color: GlassKit.colors.raised

        SoftShadow {
            radius: parent.radius
            z: -1
        }
    }
    contentItem: FocusScope {
        focus: true
        Accessible.role: Accessible.Dialog
        Accessible.name: root.title
        Keys.onEscapePressed: event => {
            if (!event.isAutoRepeat)
                root.dismissed()
        }

        Item {
            id: head

            width: parent.width
            height: root.headHeight

            SpokenText {
                anchors.verticalCenter: parent.verticalCenter
                anchors.left: parent.left
                anchors.leftMargin: GlassKit.sideMargin
                anchors.right: actionRow.left
                anchors.rightMargin: GlassKit.sideMargin
                text: root.title
                font: GlassKit.titleFont
                Accessible.role: Accessible.Heading
            }
            Row {
                id: actionRow

                anchors.verticalCenter: parent.verticalCenter
                anchors.right: parent.right
                anchors.rightMargin: GlassKit.sideMargin
                spacing: GlassKit.controlSpacing
            }
            HairLine {
                anchors.top: parent.bottom
                width: parent.width
            }
        }
        FocusScope {
            id: body

            anchors.top: head.bottom
            anchors.topMargin: 1
            anchors.bottom: parent.bottom
            // The corners stay round.
            anchors.bottomMargin: root.fillsWorkspace ? 0 : 2
            width: parent.width
            focus: true
        }
    }
}
