import QtQuick
import Corvane.Theme
import Corvane.Views.Salvos
import Corvane.Views.Shared

// A row of the manager, whatever it is: a salvo, a line of its preview, or a text among them.
RowItem {
    id: root

    required property salvoRow row
    required property salvoLook look
    required property var buttons
    required property SalvoListModel salvos
    required property SalvoRowSizes sizes

    height: sizes.of(row)
    radius: GlassKit.selectableRowRadius
    hoverColor: row.isSalvo && !isFocused ? GlassKit.colors.faint : "transparent"

    SalvoWatcher {
        diffs: root.salvos.diffs
        salvo: root.row.id
        isWatching: root.isSettled && root.row.isSalvo
    }
    Loader {
        anchors.fill: parent
        sourceComponent: root.row.isSalvo ? salvo : root.row.isPreview ? preview : root.row.isInvitation ? invitation : section
    }
    Component {
        id: salvo

        SalvoRow {
            item: root
            row: root.row
            look: root.look
            buttons: root.buttons
            onFired: root.salvos.fire(root.index)
            onUpdated: root.salvos.update(root.index)
        }
    }
    Component {
        id: preview

        SalvoPreview {
            line: root.row.preview
            topPadding: root.row.isFirst ? root.sizes.previewPadding : 0
            lineHeight: root.sizes.preview
        }
    }
    Component {
        id: section

        SalvoSection {
            row: root.row
        }
    }
    Component {
        id: invitation

        Item {
            PlainText {
                id: none

                x: 6
                y: 8
                width: parent.width - 12
                text: root.row.text
                color: GlassKit.colors.secondary
            }
            ProminentButton {
                anchors.top: none.bottom
                anchors.topMargin: 14
                x: 6
                text: "Save Current Routing"
                onClicked: root.salvos.dialogs.beginNew()
            }
        }
    }
}
