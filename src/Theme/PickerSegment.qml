import QtQuick
import QtQuick.Templates as T
import Corvane.Theme

// One segment of a `SegmentedPicker`.
T.RadioButton {
    id: root

    required property bool selected
    property string symbol

    implicitWidth: row.implicitWidth + 24
    focusPolicy: Qt.NoFocus
    checked: selected
    Accessible.role: Accessible.RadioButton
    Accessible.name: text
    Accessible.ignored: !visible
    Accessible.onPressAction: clicked()
    Accessible.onToggleAction: clicked()

    contentItem: Item {
        Row {
            id: row

            anchors.centerIn: parent
            spacing: 5

            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                visible: root.symbol !== ""
                name: root.symbol
                size: 14
                color: label.color
            }
            PlainText {
                id: label

                text: root.text
                width: Math.min(implicitWidth, 160)
                font: GlassKit.controlFont
                color: root.selected || root.hovered ? GlassKit.colors.text : GlassKit.colors.secondary
                Accessible.ignored: true
            }
        }
    }
}
