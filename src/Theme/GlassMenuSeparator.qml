import QtQuick
import QtQuick.Templates as T
import Corvane.Theme

// Between two groups of a `GlassMenu`'s lines.
T.MenuSeparator {
    implicitHeight: 9
    Accessible.ignored: true

    contentItem: Item {
        HairLine {
            anchors.verticalCenter: parent.verticalCenter
            x: 8
            width: parent.width - 16
        }
    }
}
