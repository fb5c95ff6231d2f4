import QtQuick
import Corvane.Theme
import Corvane.Views.Panels
import Corvane.Views.Shared

// The full router and its panels as tabs, in one line that scrolls. The arrows walk them.
FocusScope {
    id: root

    required property PanelsModel model

    function centreTab(row) {
        // It may be new and have no place yet.
        tabs.forceLayout()
        scroller.centre(repeater.itemAt(row))
    }

    implicitHeight: GlassKit.controlHeight + 4
    Component.onCompleted: model.tabWanted.connect(centreTab)
    Accessible.role: Accessible.PageTabList
    Accessible.name: "Panels"

    Row {
        id: title

        anchors.verticalCenter: parent.verticalCenter
        x: GlassKit.sideMargin
        spacing: 5

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: "rectangle.grid.1x2"
            size: 13
            color: GlassKit.colors.secondary
        }
        SpokenText {
            anchors.verticalCenter: parent.verticalCenter
            text: "PANELS"
            font: GlassKit.captionStrongFont
            color: GlassKit.colors.secondary
        }
    }
    Flickable {
        id: scroller

        readonly property real lastX: Math.max(0, contentWidth - width)

        function centre(item) {
            slide.to = Math.max(0, Math.min(lastX, item.x + item.width / 2 - width / 2))
            slide.restart()
        }
        function reveal(item) {
            slide.stop()
            contentX = Math.max(Math.min(contentX, item.x), item.x + item.width - width)
        }

        anchors.left: title.right
        anchors.leftMargin: 10
        width: Math.min(contentWidth, root.width - x - GlassKit.sideMargin - GlassKit.controlSpacing - add.width)
        height: parent.height
        contentWidth: tabs.width
        boundsBehavior: Flickable.StopAtBounds
        clip: contentWidth > width
        onWidthChanged: contentX = Math.min(contentX, lastX)

        SpringyAnimation {
            id: slide

            target: scroller
            property: "contentX"
        }
        Row {
            id: tabs

            height: parent.height
            spacing: 6

            Repeater {
                id: repeater

                model: root.model.tabs
                delegate: PanelTab {
                    height: tabs.height
                    strip: root.model.tabs
                    onShown: scroller.reveal(this)
                    onMenuWanted: point => menu.open(this, point)
                }
            }
        }
        WheelHandler {
            acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
            target: null
            enabled: scroller.lastX > 0
            onWheel: event => {
                const turned = event.pixelDelta.x + event.pixelDelta.y || (event.angleDelta.x + event.angleDelta.y) / 2
                slide.stop()
                scroller.contentX = Math.max(0, Math.min(scroller.lastX, scroller.contentX - turned))
            }
        }
    }
    // There is more on this side.
    PanelTabFade {
        x: scroller.x
        visible: scroller.contentX > 0.5
    }
    PanelTabFade {
        x: scroller.x + scroller.width - width
        visible: scroller.contentX < scroller.lastX - 0.5
        leadsRight: true
    }
    GlassButton {
        id: add

        anchors.verticalCenter: parent.verticalCenter
        anchors.left: scroller.right
        anchors.leftMargin: GlassKit.controlSpacing
        symbol: "plus"
        fill: "transparent"
        tip: "New panel"
        Accessible.name: "New panel"
        onClicked: root.model.addPanel()
    }
    // Made when first asked for.
    Loader {
        id: menu

        property PanelTab tab

        function open(on, point) {
            active = true
            tab = on
            item.popup(on, point.x, point.y)
        }

        active: false
        sourceComponent: ActionMenu {
            readonly property bool isStale: menu.tab === null

            actions: menu.tab?.actions ?? []
            onChosen: text => menu.tab.choose(text)
            onIsStaleChanged: if (isStale) close()
        }
    }
}
