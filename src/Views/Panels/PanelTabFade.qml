import QtQuick
import Corvane.Theme

// Over an end of the tabs: there are more on this side.
Rectangle {
    property bool leadsRight: false

    width: 22
    height: parent.height
    color: GlassKit.colors.faded(GlassKit.colors.window, 0.85)

    Symbol {
        anchors.centerIn: parent
        rotation: parent.leadsRight ? -90 : 90
        name: "chevron.down"
        size: 14
        color: GlassKit.colors.secondary
    }
}
