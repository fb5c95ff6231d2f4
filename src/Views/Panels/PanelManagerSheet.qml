import QtQuick
import Corvane.Theme
import Corvane.Views.Panels
import Corvane.Views.Shared

// All panels of the router, to be put in order, edited, duplicated and deleted.
GlassSheet {
    id: root

    required property PanelsModel model
    readonly property bool hasPanels: model.content.hasPanels

    title: "Panels"
    preferredWidth: 520
    contentLength: hasPanels ? list.contentHeight + list.topPadding + list.bottomPadding : 300
    actions: [
        GlassButton {
            radius: GlassKit.rowRadius
            symbol: "plus"
            text: "New Panel"
            onClicked: root.model.addPanel()
        },
        GlassButton {
            radius: GlassKit.rowRadius
            text: "Done"
            onClicked: root.dismissed()
        }
    ]

    RowList {
        id: list

        anchors.fill: parent
        visible: root.hasPanels
        focus: visible
        model: root.model.manager as RowListModel
        label: root.title
        speaksOfButtons: true
        sidePadding: 10
        topPadding: 8
        bottomPadding: 8
        delegate: PanelManagerRow {
            manager: root.model.manager
        }
    }
    Loader {
        anchors.fill: parent
        active: !root.hasPanels
        focus: active
        sourceComponent: EmptyState {
            symbol: "rectangle.grid.1x2"
            title: "No Panels"
            description: "A panel shows only the sources and destinations you choose — like a locked-down hardware panel for one operator."

            ProminentButton {
                anchors.horizontalCenter: parent.horizontalCenter
                text: "New Panel"
                focus: true
                onClicked: root.model.addPanel()
            }
        }
    }
}
