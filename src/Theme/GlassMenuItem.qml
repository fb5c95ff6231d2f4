import QtQuick
import QtQuick.Templates as T
import Corvane.Theme

// One line of a `GlassMenu`.
T.MenuItem {
    id: root

    property string symbol
    property bool destructive: false
    readonly property color ink: !enabled ? GlassKit.colors.unavailable : highlighted ? GlassKit.colors.onTint : destructive ? GlassKit.colors.tintText(GlassKit.colors.red) : GlassKit.colors.text

    implicitWidth: 10 + (symbol === "" ? 0 : 24) + label.implicitWidth + 16
    implicitHeight: visible ? 28 : 0
    Accessible.role: Accessible.MenuItem
    Accessible.name: text
    Accessible.onPressAction: if (enabled)
        clicked()

    background: Rectangle {
        radius: 6
        visible: root.highlighted
        color: GlassKit.colors.tintFill(root.destructive ? GlassKit.colors.red : GlassKit.colors.accent)
    }
    contentItem: Item {
        Symbol {
            x: 10
            anchors.verticalCenter: parent.verticalCenter
            visible: root.symbol !== ""
            name: root.symbol
            size: 15
            color: root.ink
        }
        PlainText {
            id: label

            x: root.symbol === "" ? 10 : 34
            anchors.verticalCenter: parent.verticalCenter
            text: root.text
            color: root.ink
            Accessible.ignored: true
        }
    }
}
