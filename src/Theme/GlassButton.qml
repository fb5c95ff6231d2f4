import QtQuick
import QtQuick.Templates as T
import Corvane.Theme

// A quiet button with a symbol, a text or both. With a symbol alone it needs an `Accessible.name`; one that has a text may be
// told to do without it where there is little room, and then has it as its tip. A press of the mouse leaves the keyboard where it is.
T.AbstractButton {
    id: root

    // To be used in place of `enabled`: one that is not available does nothing and says so, yet keeps the keyboard.
    property bool available: true
    property string symbol
    property real symbolSize: 16
    property string tip
    property color tint: GlassKit.colors.text
    property color symbolTint: tint
    readonly property color ink: available ? tint : GlassKit.colors.unavailable
    property color fill: GlassKit.colors.quaternary
    property real radius: height / 2
    property bool iconOnly: false
    property bool opensMenu: false
    property real maximumTextWidth: Infinity
    property real textLeftPadding: symbol === "" ? 14 : 11
    property real textRightPadding: opensMenu ? 9 : 14
    readonly property bool showsText: text !== "" && !iconOnly
    // What it takes with its text and without it, whichever is shown.
    readonly property real fullWidth: textLeftPadding + (symbol === "" ? 0 : symbolSize + spacing) + label.width + (opensMenu ? spacing + chevron.width : 0) + textRightPadding
    readonly property real iconWidth: Math.max(implicitHeight, symbolSize + 12)

    function answerKey(event) {
        const isPlain = !(event.modifiers & ~Qt.KeypadModifier)
        const isReturn = isPlain && (event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
        if (isReturn && available && !event.isAutoRepeat)
            clicked()
        event.accepted = isReturn || (event.key === Qt.Key_Space && !available)
    }

    implicitWidth: showsText ? fullWidth : iconWidth
    implicitHeight: GlassKit.controlHeight
    leftPadding: showsText ? textLeftPadding : 6
    rightPadding: showsText ? textRightPadding : 6
    spacing: 6
    focusPolicy: Qt.TabFocus
    Accessible.name: text
    Accessible.description: tip
    Accessible.ignored: !visible
    // A screen reader's press reaches no button by itself.
    Accessible.onPressAction: if (available)
        clicked()
    Keys.onPressed: event => answerKey(event)

    background: Rectangle {
        radius: root.radius
        color: root.fill

        Rectangle {
            anchors.fill: parent
            radius: root.radius
            visible: root.available && (root.hovered || root.down)
            color: root.down ? GlassKit.colors.separator : GlassKit.colors.faint
        }
        FocusRing {
            shown: root.visualFocus
            radius: root.radius + 2
        }
        Tip {
            text: root.tip === "" && !root.showsText ? root.text : root.tip
        }
    }
    contentItem: Item {
        implicitWidth: row.implicitWidth

        Row {
            id: row

            anchors.centerIn: parent
            spacing: root.spacing

            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                visible: root.symbol !== ""
                name: root.symbol
                size: root.symbolSize
                color: root.available ? root.symbolTint : root.ink
            }
            PlainText {
                id: label

                anchors.verticalCenter: parent.verticalCenter
                visible: root.showsText
                width: Math.min(implicitWidth, root.maximumTextWidth)
                text: root.text
                font: GlassKit.controlFont
                color: root.ink
                Accessible.ignored: true
            }
            Symbol {
                id: chevron

                anchors.verticalCenter: parent.verticalCenter
                visible: root.opensMenu && root.showsText
                name: "chevron.down"
                color: GlassKit.colors.secondary
            }
        }
    }

    MouseArea {
        anchors.fill: parent
        visible: !root.available
    }
}
