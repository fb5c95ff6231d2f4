import QtQuick
import Corvane.Theme
import Corvane.Views.Panels

// What opens over the workspace for its panels: the manager, over that the editor, and the question before one is deleted.
Item {
    id: root

    required property PanelsModel model
    required property Item workspace

    Loader {
        active: root.model.content.showsManager
        sourceComponent: PanelManagerSheet {
            model: root.model
            workspace: root.workspace
            onDismissed: root.model.closeManager()
        }
    }
    Loader {
        active: root.model.editor.content.isShown
        sourceComponent: PanelEditor {
            model: root.model.editor
            workspace: root.workspace
        }
    }
    Loader {
        active: root.model.content.isDeleting
        sourceComponent: GlassAlert {
            visible: true
            title: root.model.content.deleteTitle
            message: root.model.content.deleteMessage
            acceptText: "Delete"
            destructive: true
            onAccepted: root.model.confirmDelete()
            onCancelled: root.model.cancelDelete()
        }
    }
}
