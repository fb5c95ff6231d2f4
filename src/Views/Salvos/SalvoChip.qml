import QtQuick
import Corvane.Theme
import Corvane.Views.Salvos

// One salvo in the strip. Its menu opens under the pointer and by the menu key; Delete asks to delete it.
Item {
    id: root

    required property int index
    required property salvoRow row
    required property salvoLook look
    required property SalvoListModel salvos
    readonly property color green: GlassKit.colors.tintText(GlassKit.colors.green)
    readonly property var actions: salvos.menuOf(index)

    // The keyboard has come here.
    signal shown
    signal menuWanted(point point)

    function choose(text) {
        salvos.choose(index, text)
    }
    function moveOn(forward) {
        button.nextItemInFocusChain(forward).forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason)
    }

    width: button.width
    Keys.onLeftPressed: moveOn(false)
    Keys.onRightPressed: moveOn(true)
    Keys.onPressed: event => {
        const isMenu = event.key === Qt.Key_Menu || (event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier)
        // Delete is Backspace on keyboards that have no other.
        const isDelete = event.key === Qt.Key_Delete || event.key === Qt.Key_Backspace
        event.accepted = !event.isAutoRepeat && (isMenu || isDelete)
        if (event.accepted && isMenu)
            menuWanted(Qt.point(width / 2, height))
        else if (event.accepted)
            salvos.askToDelete(index)
    }

    SalvoWatcher {
        diffs: root.salvos.diffs
        salvo: root.row.id
        isWatching: true
    }
    TapHandler {
        acceptedButtons: Qt.RightButton
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onPressedChanged: if (pressed)
            root.menuWanted(point.position)
    }
    GlassButton {
        id: button

        anchors.verticalCenter: parent.verticalCenter
        symbol: root.look.isInSync ? "checkmark" : "play.fill"
        text: root.row.text
        tip: root.look.status.text
        maximumTextWidth: 220
        tint: root.look.isInSync ? root.green : GlassKit.colors.text
        symbolTint: root.look.isInSync ? root.green : GlassKit.colors.accent
        fill: root.look.isInSync ? GlassKit.colors.faded(GlassKit.colors.green, 0.15) : GlassKit.colors.quaternary
        available: root.look.canFire
        onClicked: root.salvos.fire(root.index)
        onActiveFocusChanged: if (activeFocus)
            root.shown()
    }
}
