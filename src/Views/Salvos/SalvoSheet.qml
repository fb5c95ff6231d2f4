import QtQuick
import Corvane.Theme
import Corvane.Views.Salvos
import Corvane.Views.Shared

// The manager of salvos.
GlassSheet {
    id: root

    required property SalvoSheetModel model
    readonly property SalvoListModel salvos: model as SalvoListModel
    readonly property salvoSheetContent shown: model.content
    readonly property SalvoRowSizes sizes: SalvoRowSizes {}

    title: "Salvos"
    contentLength: shown.isEmpty ? 300 : sizes.lengthOf(shown) + progress.height + list.bottomPadding
    actions: [
        GlassButton {
            radius: GlassKit.rowRadius
            symbol: "plus"
            text: "New Salvo"
            onClicked: root.salvos.dialogs.beginNew()
        },
        GlassButton {
            radius: GlassKit.rowRadius
            text: "Done"
            onClicked: root.dismissed()
        }
    ]

    SalvoProgress {
        id: progress

        width: parent.width
        model: root.salvos.progress
    }
    RowList {
        id: list

        anchors.top: progress.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        visible: !root.shown.isEmpty
        focus: visible
        model: root.model as RowListModel
        label: "Salvos"
        speaksOfButtons: true
        sidePadding: 10
        bottomPadding: 10
        delegate: SalvoSheetRow {
            salvos: root.salvos
            sizes: root.sizes
        }
        add: Transition {
            NumberAnimation {
                property: "opacity"
                from: 0
                to: 1
                duration: GlassKit.bannerDuration
            }
        }
        displaced: Transition {
            SpringyAnimation {
                property: "y"
            }
            NumberAnimation {
                property: "opacity"
                to: 1
                duration: GlassKit.bannerDuration
            }
        }
    }
    Loader {
        anchors.fill: parent
        active: root.shown.isEmpty
        focus: active
        sourceComponent: EmptyState {
            symbol: "rectangle.stack.badge.play"
            title: "No Salvos"
            description: "Save the current routing as a snapshot you can fire anytime."

            ProminentButton {
                anchors.horizontalCenter: parent.horizontalCenter
                text: "Save Current Routing"
                focus: true
                onClicked: root.salvos.dialogs.beginNew()
            }
        }
    }
    SalvoDialogHost {
        dialogs: root.salvos.dialogs
    }
    Loader {
        active: root.model.isRenaming
        sourceComponent: SalvoNamePrompt {
            visible: true
            title: "Rename Salvo"
            draft: root.model.renameDraft
            onDraftEdited: draft => root.model.renameDraft = draft
            onAccepted: root.model.commitRename()
            onCancelled: root.model.cancelRename()
        }
    }
    Loader {
        active: root.model.hasRenameConflict
        sourceComponent: GlassAlert {
            visible: true
            title: "Name Already Used"
            message: root.model.conflictMessage
            acceptText: "OK"
            canCancel: false
            onAccepted: root.model.clearConflict()
            onCancelled: root.model.clearConflict()
        }
    }
}
