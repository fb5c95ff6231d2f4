import QtQuick
import Corvane.Theme

// Holds one part of the floating bar and moves it to its place. Gone while it has none.
Item {
    id: root

    required property rect place

    x: place.x
    y: place.y
    width: place.width
    height: place.height
    visible: place.width > 0

    // Only what is there already is seen to move.
    Behavior on x {
        enabled: root.visible

        SpringyAnimation {}
    }
    Behavior on y {
        enabled: root.visible

        SpringyAnimation {}
    }
}
