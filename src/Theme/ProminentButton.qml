import QtQuick
import Corvane.Theme

// The one button of a place that does what the place is for.
GlassButton {
    property color accent: GlassKit.colors.accent

    fill: available ? GlassKit.colors.tintFill(accent) : GlassKit.colors.quaternary
    tint: GlassKit.colors.onTint
    textLeftPadding: symbol === "" ? 18 : 14
    textRightPadding: 18
}
