import QtQuick
import Corvane.Theme

// A small button in the head of a section.
GlassButton {
    implicitHeight: 20
    textLeftPadding: 9
    textRightPadding: 9
    font: GlassKit.captionStrongFont
}
