import QtQuick
import Corvane.Theme
import Corvane.Views

// The buttons in the header of a pane. They stay the same while what they do changes, and so keep the keyboard.
Row {
    id: root

    required property PaneModel model
    required property bool showsLabels
    readonly property color tint: model.content.tint
    readonly property bool hasTwo: model.content.actionLabels.length > 1
    readonly property real labelledWidth: (first.text === "" ? 0 : first.fullWidth) + (hasTwo ? spacing + second.fullWidth : 0)
    readonly property real iconWidth: (first.text === "" ? 0 : first.iconWidth) + (hasTwo ? spacing + second.iconWidth : 0)

    component ActionButton: GlassButton {
        required property int position

        text: root.model.content.actionLabels[position] ?? ""
        symbol: root.model.content.actionSymbols[position] ?? ""
        visible: text !== ""
        iconOnly: !root.showsLabels
        tint: GlassKit.tintText(root.tint)
        fill: GlassKit.faded(root.tint, 0.15)
        onClicked: root.model.performHeaderAction(position)
    }

    spacing: GlassKit.controlSpacing

    ActionButton {
        id: first

        position: 0
    }
    ActionButton {
        id: second

        position: 1
    }
}
