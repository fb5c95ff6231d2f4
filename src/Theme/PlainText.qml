import QtQuick
import Corvane.Theme

// One line of text that is never taken for markup: most of what we show was named by a device or by an operator.
Text {
    font: GlassKit.bodyFont
    color: GlassKit.colors.text
    textFormat: Text.PlainText
    // Names of any script begin where all others do.
    horizontalAlignment: Text.AlignLeft
    elide: Text.ElideRight
    maximumLineCount: 1
}
