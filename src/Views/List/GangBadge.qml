import QtQuick
import Corvane.Theme

// On the corner of a row's number: puts the row into the gang and takes it out. Its place is reached by more than is seen of it,
// and a click on it is not the row's.
Item {
    id: root

    required property string symbol
    required property color tint

    signal clicked

    width: 26
    height: 26

    Rectangle {
        anchors.fill: mark
        anchors.margins: 1
        radius: width / 2
        color: GlassKit.colors.raised
    }
    Symbol {
        id: mark

        anchors.centerIn: parent
        name: root.symbol
        size: 14
        color: hover.hovered ? GlassKit.colors.text : root.tint
    }
    HoverHandler {
        id: hover
    }
    TapHandler {
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: root.clicked()
    }
}
