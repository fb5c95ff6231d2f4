import QtQuick
import Corvane.Theme
import Corvane.Views.List
import Corvane.Views.Shared

// A button in the header of a pane. It stays the same while what it does changes, and so keeps the keyboard.
GlassButton {
    id: root

    required property PaneModel model
    required property int position
    readonly property var offered: model.content.actions[position]

    signal keyboardFreed

    text: offered?.text ?? ""
    symbol: offered?.symbol ?? ""
    iconOnly: FittingRow.isShort
    tint: GlassKit.colors.tintText(model.content.tint)
    fill: GlassKit.colors.faded(model.content.tint, 0.15)
    FittingRow.fullWidth: text === "" ? 0 : fullWidth
    FittingRow.shortWidth: iconWidth
    FittingRow.shortFrom: 1
    onClicked: model.performHeaderAction(position)
    onTextChanged: if (text === "" && activeFocus)
        keyboardFreed()
}
