import QtQuick
import Corvane.Theme
import Corvane.Views.Salvos

// Stands between the operator and the firing of a salvo. Once nothing can be fired it only says why.
GlassAlert {
    id: root

    required property SalvoDialogs dialogs

    title: dialogs.fireConfirmation.title
    message: dialogs.fireConfirmation.message
    acceptText: dialogs.fireConfirmation.acceptText
    canAccept: dialogs.fireConfirmation.canAccept
    destructive: true
    onAccepted: dialogs.fire()
    onCancelled: dialogs.cancel()
}
