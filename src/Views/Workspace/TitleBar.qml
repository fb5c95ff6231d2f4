import QtQuick
import Corvane.Theme
import Corvane.Views.Workspace

// The name of the open router and what is known beyond it, and the toolbar.
Item {
    id: root

    required property WorkspaceModel model
    // However crowded the toolbar is, so much of the name is to be read.
    readonly property real leastTitle: Math.min(title.implicitWidth, 120)

    implicitHeight: 52

    Column {
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: parent.left
        anchors.leftMargin: GlassKit.sideMargin
        anchors.right: toolbar.active ? toolbar.left : parent.right
        anchors.rightMargin: GlassKit.sideMargin
        spacing: 2

        SpokenText {
            id: title

            width: parent.width
            text: root.model.content.title
            font: GlassKit.titleFont
            Accessible.role: Accessible.Heading
        }
        SpokenText {
            width: parent.width
            visible: text !== ""
            text: root.model.content.subtitle
            font: GlassKit.captionFont
            color: GlassKit.colors.secondary
        }
    }
    Loader {
        id: toolbar

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: GlassKit.sideMargin
        active: root.model.toolbar.content.isShown
        sourceComponent: Toolbar {
            model: root.model.toolbar
            panels: root.model.panels
            onSalvosWanted: root.model.showingSalvos = true
            available: root.width - 3 * GlassKit.sideMargin - root.leastTitle
        }
    }
    HairLine {
        anchors.bottom: parent.bottom
        width: parent.width
    }
}
