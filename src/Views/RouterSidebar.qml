import QtQuick
import Corvane.Theme
import Corvane.Views

// The saved routers, and which one is open.
Rectangle {
    id: root

    required property RouterListModel routers

    color: GlassKit.sidebar

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
        model: root.routers
        currentIndex: root.routers.selectedRow
        Accessible.role: Accessible.List
        Accessible.name: section.text
        Keys.onUpPressed: root.routers.select(currentIndex - 1)
        Keys.onDownPressed: root.routers.select(currentIndex + 1)
        onCurrentIndexChanged: positionViewAtIndex(currentIndex, ListView.Contain)

        delegate: RouterRow {
            width: list.width
            selected: index === list.currentIndex
            focused: selected && list.activeFocus
            onChosen: root.routers.select(index)
        }
    }
}
