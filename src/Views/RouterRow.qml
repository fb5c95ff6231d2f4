import QtQuick
import Corvane.Theme
import Corvane.Views

// One line of the sidebar.
ActionRow {
    id: root

    required property int index
    required property string name
    required property string endpoint
    required property string symbol
    required property color tint
    required property statusLook status
    required property var commandNames
    property bool selected: false
    property bool focused: false
    // Its menu is open.
    property bool marked: false

    signal chosen
    signal menuAsked(point at)

    implicitHeight: 46
    actionNames: commandNames
    Accessible.role: Accessible.ListItem
    Accessible.name: name
    Accessible.description: endpoint + ", " + status.word
    Accessible.selectable: true
    Accessible.selected: selected
    Accessible.focusable: true
    onPressAsked: chosen()

    Rectangle {
        anchors.fill: parent
        radius: GlassKit.rowRadius
        color: root.selected ? GlassKit.selection : hover.hovered || root.marked ? GlassKit.faint : "transparent"
    }
    HoverHandler {
        id: hover
    }
    TapHandler {
        onTapped: root.chosen()
    }
    TapHandler {
        acceptedButtons: Qt.RightButton
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onPressedChanged: if (pressed) root.menuAsked(point.position)
    }
    Rectangle {
        id: box

        anchors.verticalCenter: parent.verticalCenter
        x: 8
        width: 28
        height: 28
        radius: GlassKit.iconBoxRadius
        color: GlassKit.faded(root.tint, 0.15)

        Symbol {
            anchors.centerIn: parent
            name: root.symbol
            size: 17
            color: root.tint
        }
    }
    Column {
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: box.right
        anchors.leftMargin: 10
        anchors.right: dot.left
        anchors.rightMargin: 12
        spacing: 2

        PlainText {
            width: parent.width
            text: root.name
            font: GlassKit.rowFont
            Accessible.ignored: true
        }
        PlainText {
            width: parent.width
            text: root.endpoint
            font: GlassKit.captionFont
            color: GlassKit.secondary
            Accessible.ignored: true
        }
    }
    StatusDot {
        id: dot

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: 9
        status: root.status
    }
    FocusRing {
        shown: root.focused || root.marked
        anchors.margins: 0
        radius: GlassKit.rowRadius
    }
}
