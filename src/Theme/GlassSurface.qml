import QtQuick
import Corvane.Theme

// The surface that bars and headers stand on: a capsule unless it is told a radius.
Rectangle {
    radius: height / 2
    color: GlassKit.colors.surface
    border.width: 1
    border.color: GlassKit.colors.separator
    antialiasing: true
}
