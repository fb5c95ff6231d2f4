import QtQuick
import Corvane.Theme

// The one button of a place that does what the place is for.
GlassButton {
    property color accent: GlassKit.colors.accent

    fill: GlassKit.colors.tintFill(accent)
    tint: GlassKit.colors.onTint
    textLeftPadding: symbol === "" ? 18 : 14
    textRightPadding: 18
}
