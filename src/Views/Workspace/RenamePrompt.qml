import QtQuick
import Corvane.Theme
import Corvane.Views.Workspace

// Asks for the new name of a port.
GlassAlert {
    id: root

    required property RenamePromptModel model

    title: model.renameTitle
    acceptText: "Save"
    onAccepted: model.commitRename()
    onCancelled: model.cancel()
    onOpened: field.selectAll()

    GlassField {
        id: field

        width: parent.width
        focus: true
        placeholderText: "Name"
        text: root.model.renameDraft
        Accessible.name: "Name"
        onTextEdited: root.model.renameDraft = text
    }
}
