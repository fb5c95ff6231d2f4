import QtQuick
import Corvane.Theme
import Corvane.Views.Salvos
import Corvane.Views.Shared

// The salvos at hand, in one line: a chip for each, which fires it after a question.
FocusScope {
    id: root

    required property SalvoStripModel model
    readonly property SalvoListModel salvos: model as SalvoListModel

    signal managerOpened

    implicitHeight: GlassKit.controlHeight + 4
    Accessible.role: Accessible.ToolBar
    Accessible.name: "Salvos"

    ListView {
        id: chips

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: GlassKit.sideMargin
        anchors.rightMargin: GlassKit.sideMargin + buttons.width + GlassKit.controlSpacing
        height: parent.height
        orientation: ListView.Horizontal
        spacing: GlassKit.controlSpacing
        boundsBehavior: Flickable.StopAtBounds
        clip: contentWidth > width
        keyNavigationEnabled: false
        currentIndex: -1
        model: root.model
        delegate: SalvoChip {
            height: chips.height
            salvos: root.salvos
            onShown: chips.positionViewAtIndex(index, ListView.Contain)
            onMenuWanted: point => menu.open(this, point)
        }
    }
    SpokenText {
        id: noneYet

        anchors.verticalCenter: parent.verticalCenter
        x: GlassKit.sideMargin
        width: Math.min(implicitWidth, chips.width)
        text: root.model.content.noneYet
        color: GlassKit.colors.secondary
    }
    Row {
        id: buttons

        readonly property real wanted: root.model.content.noneYet === "" ? chips.contentWidth : noneYet.width

        anchors.verticalCenter: parent.verticalCenter
        x: GlassKit.sideMargin + Math.min(chips.width, wanted) + (wanted > 0 ? GlassKit.controlSpacing : 0)
        spacing: 4

        GlassButton {
            symbol: "plus"
            fill: "transparent"
            tip: root.model.content.newTip
            Accessible.name: root.model.content.newTip
            onClicked: root.salvos.dialogs.beginNew()
        }
        GlassButton {
            symbol: "slider.horizontal.3"
            fill: "transparent"
            tint: GlassKit.colors.secondary
            tip: "Manage salvos"
            Accessible.name: "Manage salvos"
            onClicked: root.managerOpened()
        }
        SalvoProgress {
            width: Math.min(220, root.width - buttons.x - GlassKit.sideMargin - 80)
            anchors.verticalCenter: parent.verticalCenter
            isCompact: true
            model: root.salvos.progress
        }
    }
    // Made when first asked for.
    Loader {
        id: menu

        property SalvoChip chip

        function open(on, point) {
            active = true
            chip = on
            item.popup(on, point.x, point.y)
        }

        active: false
        sourceComponent: ActionMenu {
            readonly property bool isStale: menu.chip === null

            actions: menu.chip?.actions ?? []
            onChosen: text => {
                const chip = menu.chip
                close()
                chip.choose(text)
            }
            onIsStaleChanged: if (isStale) close()
        }
    }
}
