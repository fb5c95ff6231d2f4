import QtQuick
import Corvane.Theme
import Corvane.Views.Workspace

// The active panel was made for ports that this router doesn't have.
EmptyState {
    id: root

    required property WorkspaceModel model

    symbol: "rectangle.on.rectangle.slash"
    title: "Panel Doesn't Match This Router"
    description: "None of this panel's saved ports exist on the connected router."

    Row {
        anchors.horizontalCenter: parent.horizontalCenter
        spacing: GlassKit.controlSpacing

        ProminentButton {
            text: "Edit Panel…"
            focus: true
            onClicked: root.model.panels.editActivePanel()
        }
        GlassButton {
            text: "Show Full Router"
            onClicked: root.model.showFullRouter()
        }
    }
}
