import QtQuick
import Corvane.Theme
import Corvane.Views.Shared

// Holds one part of the floating bar, which is its only child, and moves it to its place. Without a place it is not there.
Item {
    id: root

    required property bool isShown
    readonly property Item part: children.length > 0 ? children[0] : null

    implicitHeight: part ? part.implicitHeight : 0
    FittingRow.fullWidth: isShown && part ? part.implicitWidth : 0

    // Only what is there already is seen to move.
    Behavior on x {
        enabled: root.visible && root.width > 0

        SpringyAnimation {}
    }
    Behavior on y {
        enabled: root.visible && root.width > 0

        SpringyAnimation {}
    }
}
