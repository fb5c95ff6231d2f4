import QtQuick

// Put into a focus scope, it gives the keyboard to `heir` when what had it there is gone. What comes in its place may take it first.
Timer {
    id: root

    required property Item scope
    required property Item heir
    readonly property Item holder: scope.Window.activeFocusItem

    interval: 0
    running: scope.activeFocus && holder !== null && (holder === scope || !holder.visible)
    onTriggered: heir.forceActiveFocus(Qt.TabFocusReason)
}
