import QtQuick
import Corvane.Theme

// The one button of a place that does what the place is for.
GlassButton {
    property color accent: GlassKit.accent

    fill: GlassKit.tintFill(accent)
    tint: GlassKit.onTint
    textLeftPadding: symbol === "" ? 18 : 14
    textRightPadding: 18
}
