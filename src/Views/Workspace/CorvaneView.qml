import QtQuick
import Corvane.Theme
import Corvane.Views.Panels
import Corvane.Views.Salvos
import Corvane.Views.Workspace

// The workspace of one router: its working screen while it is connected, the way to connect it otherwise.
FocusScope {
    id: root

    required property WorkspaceModel model

    RouterBackdrop {
        anchors.fill: parent
        tint: root.model.content.color
    }
    TitleBar {
        id: titleBar

        width: parent.width
        height: implicitHeight
        model: root.model
    }
    Loader {
        anchors.top: titleBar.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        active: root.model.content.isConnected
        focus: active
        sourceComponent: WorkingScreen {
            model: root.model
            focus: true
        }
    }
    Loader {
        anchors.top: titleBar.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        active: !root.model.content.isConnected
        focus: active
        sourceComponent: ConnectPrompt {
            model: root.model.prompt
        }
    }
    // Whatever becomes of the link meanwhile, what is being typed stays.
    Loader {
        active: root.model.rename.isShown
        sourceComponent: RenamePrompt {
            model: root.model.rename
            visible: true
        }
    }
    PanelDialogHost {
        model: root.model.panels
        workspace: root
    }
    SalvoDialogHost {
        dialogs: (root.model.salvoStrip as SalvoListModel).dialogs
    }
    Loader {
        active: root.model.showingSalvos
        sourceComponent: SalvoSheet {
            model: root.model.salvoSheet
            workspace: root
            onDismissed: root.model.showingSalvos = false
        }
    }
}
