import QtQuick
import Corvane.Theme
import Corvane.Views.Panels

// One tab. Its menu opens under the pointer and by the menu key; F2 and Delete are in it.
Item {
    id: root

    required property int index
    required property panelItem row
    required property PanelTabStripModel strip
    readonly property var actions: strip.menuOf(index)

    // The keyboard has come here.
    signal shown
    signal menuWanted(point point)

    function choose(text) {
        strip.chooseInMenu(index, text)
    }
    function walk(forward) {
        const next = button.nextItemInFocusChain(forward)
        next.forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason)
    }

    width: button.width
    Keys.onLeftPressed: walk(false)
    Keys.onRightPressed: walk(true)
    Keys.onPressed: event => {
        const isMenu = event.key === Qt.Key_Menu || (event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier)
        event.accepted = !event.isAutoRepeat && (isMenu || strip.runKey(index, event.key))
        if (event.accepted && isMenu)
            menuWanted(Qt.point(width / 2, height))
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
        text: root.row.name
        tip: root.strip.tip(root.row)
        maximumTextWidth: 180
        fill: root.row.isActive ? GlassKit.colors.tintFill(GlassKit.colors.accent) : GlassKit.colors.quaternary
        tint: root.row.isActive ? GlassKit.colors.onTint : GlassKit.colors.text
        Accessible.role: Accessible.PageTab
        Accessible.selectable: true
        Accessible.selected: root.row.isActive
        Accessible.description: root.strip.help(root.row)
        onClicked: root.strip.activate(root.index)
        onActiveFocusChanged: if (activeFocus)
            root.shown()
    }
}
