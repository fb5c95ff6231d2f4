import QtQuick
import Corvane.Theme
import Corvane.Views.Salvos
import Corvane.Views.Shared

// One salvo of the manager: how it stands against the live routing, and what can be done with it.
Item {
    id: root

    // The row that it is the content of.
    required property RowItem item
    required property salvoRow row
    required property salvoLook look
    required property var buttons
    readonly property color green: GlassKit.colors.tintText(GlassKit.colors.green)
    readonly property color orange: GlassKit.colors.tintText(GlassKit.colors.orange)
    // Tab goes through the buttons of the row that the keyboard is on, and of no other.
    readonly property int buttonPolicy: item.isCurrentRow ? Qt.TabFocus : Qt.NoFocus

    signal fired
    signal updated

    Rectangle {
        anchors.fill: parent
        radius: root.item.radius
        visible: root.item.isFocused
        color: GlassKit.colors.selection
    }
    Symbol {
        id: mark

        anchors.verticalCenter: parent.verticalCenter
        x: 6
        width: 26
        name: root.look.isInSync ? "checkmark.circle.fill" : "rectangle.stack.badge.play"
        size: 20
        color: root.look.isInSync ? root.green : GlassKit.colors.accent
    }
    Column {
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: mark.right
        anchors.leftMargin: 12
        anchors.right: controls.left
        anchors.rightMargin: 12
        spacing: 2

        PlainText {
            id: name

            width: parent.width
            text: root.row.text
            font: GlassKit.rowFont
        }
        Row {
            spacing: 4

            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                visible: root.look.status.isActive
                name: "checkmark"
                size: 12
                color: root.green
            }
            PlainText {
                text: root.look.status.text
                font: GlassKit.captionFont
                color: root.look.status.isActive ? root.green : GlassKit.colors.secondary
            }
            Item {
                width: 2
                height: 1
                visible: locked.visible
            }
            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                visible: locked.visible
                name: "lock.fill"
                size: 12
                color: root.orange
            }
            PlainText {
                id: locked

                visible: text !== ""
                text: root.look.status.lockedCount
                font: GlassKit.captionFont
                color: root.orange
            }
        }
    }
    Row {
        id: controls

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: 6
        spacing: 12

        RowButtons {
            row: root.item
            actions: root.buttons
        }
        GlassButton {
            symbol: "camera.viewfinder"
            tip: root.look.updateTip
            available: !root.look.isInSync
            focusPolicy: root.buttonPolicy
            Accessible.name: root.look.updateName
            onClicked: root.updated()
        }
        ProminentButton {
            text: "Fire"
            available: root.look.canFire
            focusPolicy: root.buttonPolicy
            Accessible.name: root.look.fireName
            onClicked: root.fired()
        }
    }
    HairLine {
        anchors.bottom: parent.bottom
        x: 44
        width: parent.width - x - 6
        visible: (!root.row.isLast || root.row.isExpanded) && !root.item.isFocused
    }
    Tip {
        text: name.truncated ? root.row.text : ""
    }
}
