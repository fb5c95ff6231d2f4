import QtQuick
import Corvane.Theme
import Corvane.Views.Salvos

// Shows what is being asked about salvos.
Item {
    id: root

    required property SalvoDialogs dialogs

    Loader {
        active: root.dialogs.fireConfirmation.isShown
        sourceComponent: SalvoFireConfirmation {
            visible: true
            dialogs: root.dialogs
        }
    }
    Loader {
        active: root.dialogs.question.isShown
        sourceComponent: GlassAlert {
            visible: true
            title: root.dialogs.question.title
            message: root.dialogs.question.message
            acceptText: root.dialogs.question.acceptText
            destructive: true
            onAccepted: root.dialogs.confirm()
            onCancelled: root.dialogs.cancel()
        }
    }
    Loader {
        active: root.dialogs.showingNew
        sourceComponent: SalvoNamePrompt {
            visible: true
            title: "New Salvo"
            message: root.dialogs.newMessage
            draft: root.dialogs.draftName
            onDraftEdited: draft => root.dialogs.draftName = draft
            onAccepted: root.dialogs.commitNew()
            onCancelled: root.dialogs.cancel()
        }
    }
}
