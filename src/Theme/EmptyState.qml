import QtQuick
import Corvane.Theme

// What a place shows that has nothing to show: a symbol, a title, a line or two, and what can be done about it.
Item {
    id: root

    required property string symbol
    required property string title
    property string description
    property color tint: GlassKit.colors.secondary
    default property alias content: extras.data

    Accessible.role: Accessible.Grouping
    Accessible.name: title
    Accessible.description: description

    Column {
        anchors.centerIn: parent
        width: Math.min(420, parent.width - 2 * GlassKit.sideMargin)
        spacing: 12

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            name: root.symbol
            size: 48
            color: root.tint
        }
        PlainText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: root.title
            font: GlassKit.largeTitleFont
            wrapMode: Text.Wrap
            maximumLineCount: 2
        }
        PlainText {
            width: parent.width
            visible: text !== ""
            horizontalAlignment: Text.AlignHCenter
            text: root.description
            color: GlassKit.colors.secondary
            wrapMode: Text.Wrap
            maximumLineCount: 4
        }
        Column {
            id: extras

            width: parent.width
            spacing: 12
        }
    }
}
