import QtQuick
import Corvane.Theme
import Corvane.Views

// The saved routers, which one is open, and what can be done with each.
Rectangle {
    id: root

    required property RouterSidebarModel model

    function showMenu(row: int, at: point) {
        menu.popup(list.itemAtIndex(row), at.x, at.y)
    }

    color: GlassKit.sidebar

    Connections {
        target: root.model
        function onMenuRequested(row: int) {
            list.positionViewAtIndex(row, ListView.Contain)
            root.showMenu(row, Qt.point(46, 40))
        }
    }
    PlainText {
        id: title

        x: 18
        y: 16
        text: qsTr("Corvane")
        font: GlassKit.headingFont
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    GlassButton {
        anchors.right: parent.right
        anchors.rightMargin: 14
        anchors.verticalCenter: title.verticalCenter
        symbol: "plus"
        symbolSize: 20
        fill: "transparent"
        tint: GlassKit.secondary
        tip: qsTr("Add Router")
        Accessible.name: qsTr("Add Router")
        onClicked: root.model.addRouter()
    }
    PlainText {
        id: section

        x: 18
        y: 58
        text: qsTr("Routers")
        font: GlassKit.captionStrongFont
        color: GlassKit.secondary
        Accessible.ignored: true
    }
    ListView {
        id: list

        // Whoever works with the mouse needs no ring to know where they are.
        property bool showsFocus: true

        anchors.top: section.bottom
        anchors.topMargin: 6
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: 10
        anchors.rightMargin: 10
        bottomMargin: 10
        spacing: 3
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        activeFocusOnTab: true
        keyNavigationEnabled: false
        highlightFollowsCurrentItem: false
        model: root.model.routers
        currentIndex: root.model.routers.selectedRow
        Accessible.role: Accessible.List
        Accessible.name: section.text
        Keys.onPressed: event => {
            showsFocus = true
            event.accepted = root.model.pressKey(event.key, event.modifiers)
        }
        onActiveFocusChanged: showsFocus = true
        onCurrentIndexChanged: positionViewAtIndex(currentIndex, ListView.Contain)

        delegate: RouterRow {
            width: list.width
            selected: ListView.isCurrentItem
            focused: activeFocus && list.showsFocus
            marked: index === root.model.menuRow
            onChosen: {
                list.forceActiveFocus(Qt.MouseFocusReason)
                list.showsFocus = false
                root.model.routers.select(index)
            }
            onMenuAsked: at => {
                root.model.openMenu(index)
                root.showMenu(index, at)
            }
            onActionAsked: position => root.model.performAt(index, position)
        }
    }
    ThinScrollBar {
        anchors.right: parent.right
        y: list.y
        height: list.height
        orientation: Qt.Vertical
        extent: list.contentHeight + list.bottomMargin
        window: list.height
        offset: list.contentY - list.originY
        onMoved: offset => list.contentY = offset + list.originY
    }
    GlassMenu {
        id: menu

        readonly property bool isStale: root.model.menuRow < 0

        onIsStaleChanged: if (isStale) close()
        onClosed: root.model.closeMenu()

        Repeater {
            model: root.model.menu
            delegate: GlassMenuItem {
                required property routerCommand modelData

                text: modelData.text
                symbol: modelData.symbol
                destructive: modelData.isDestructive
                onTriggered: root.model.perform(modelData)
            }
        }
    }
    Loader {
        active: root.model.isDeleting
        sourceComponent: GlassAlert {
            visible: true
            title: root.model.deleteTitle
            message: root.model.deleteMessage
            acceptText: qsTr("Delete")
            destructive: true
            onAccepted: root.model.confirmDelete()
            onCancelled: root.model.cancelDelete()
        }
    }
}
