import QtQuick
import Corvane.Theme

// Makes the cells of the grid smaller and larger. What a step leads to is decided by the model.
Rectangle {
    id: root

    required property MatrixZoom zoom
    property bool embedded: false

    implicitWidth: steppers.implicitWidth + (embedded ? 0 : 32)
    implicitHeight: steppers.implicitHeight + (embedded ? 0 : 18)
    radius: height / 2
    color: embedded ? "transparent" : GlassKit.colors.surface
    border.width: embedded ? 0 : 1
    border.color: GlassKit.colors.separator

    Row {
        id: steppers

        anchors.centerIn: parent
        spacing: 2

        GlassButton {
            symbol: "minus"
            fill: "transparent"
            available: root.zoom.canShrink
            Accessible.name: "Smaller cells"
            onClicked: root.zoom.shrink()
        }
        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: "square.grid.3x3"
            color: GlassKit.colors.secondary
        }
        GlassButton {
            symbol: "plus"
            fill: "transparent"
            available: root.zoom.canGrow
            Accessible.name: "Larger cells"
            onClicked: root.zoom.grow()
        }
    }
}
