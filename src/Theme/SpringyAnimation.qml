import QtQuick
import Corvane.Theme

// Moves bars and their parts to a new arrangement.
NumberAnimation {
    duration: GlassKit.layoutSpringDuration
    easing: GlassKit.layoutSpring
}
