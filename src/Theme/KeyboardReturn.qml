import QtQuick

// For what comes and goes by itself: gives the keyboard back to what had it before its parent did.
Item {
    id: root

    property Item before: null

    function giveBack() {
        if (!parent.activeFocus)
            return
        const owner = before && before.visible && before.enabled ? before : parent.nextItemInFocusChain()
        owner.forceActiveFocus(Qt.OtherFocusReason)
    }

    Connections {
        target: root.Window.window

        function onActiveFocusItemChanged() {
            if (!root.parent.activeFocus)
                root.before = root.Window.activeFocusItem
        }
    }
}
