import QtQuick
import Corvane.Theme
import Corvane.Views.Shared
import Corvane.Views.Sidebar

// The saved routers, which one is open, and what can be done with each.
Rectangle {
    id: root

    required property RouterSidebarModel model

    color: GlassKit.colors.sidebar

    SpokenText {
        id: title

        x: 18
        y: 16
        text: "Corvane"
        font: GlassKit.headingFont
        Accessible.role: Accessible.Heading
    }
    GlassButton {
        anchors.right: parent.right
        anchors.rightMargin: 14
        anchors.verticalCenter: title.verticalCenter
        symbol: "plus"
        symbolSize: 20
        fill: "transparent"
        tint: GlassKit.colors.secondary
        tip: "Add Router"
        Accessible.name: "Add Router"
        onClicked: root.model.addRouter()
    }
    PlainText {
        id: section

        x: 18
        y: 58
        text: "Routers"
        font: GlassKit.captionStrongFont
        color: GlassKit.colors.secondary
        Accessible.ignored: true
    }
    RowList {
        anchors.top: section.bottom
        anchors.topMargin: 6
        anchors.bottom: parent.bottom
        width: parent.width
        model: root.model as RowListModel
        label: section.text
        sidePadding: 10
        bottomPadding: 10
        spacing: 3
        delegate: RouterRow {}
    }
    Loader {
        active: root.model.isDeleting
        sourceComponent: GlassAlert {
            visible: true
            title: root.model.deleteTitle
            message: root.model.deleteMessage
            acceptText: "Delete"
            destructive: true
            onAccepted: root.model.confirmDelete()
            onCancelled: root.model.cancelDelete()
        }
    }
}
