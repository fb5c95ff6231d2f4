import QtQuick
import Corvane.Theme

// Keeps two groups apart. Give it its length.
Rectangle {
    implicitWidth: 1
    implicitHeight: 1
    color: GlassKit.colors.separator
    Accessible.ignored: true
}
