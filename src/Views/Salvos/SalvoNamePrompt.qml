import QtQuick
import Corvane.Theme

// Asks what a salvo is to be called.
GlassAlert {
    id: root

    required property string draft

    signal draftEdited(string draft)

    acceptText: "Save"
    onOpened: field.selectAll()

    GlassField {
        id: field

        width: parent.width
        focus: true
        placeholderText: "Name"
        text: root.draft
        Accessible.name: "Name"
        onTextEdited: root.draftEdited(text)
    }
}
