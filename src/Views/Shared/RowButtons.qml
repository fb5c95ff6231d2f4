import QtQuick
import Corvane.Theme
import Corvane.Views.Shared

// What can be done with a row, as buttons at its end. They are there while the pointer or the keyboard is; screen readers have the
// row's actions instead.
Row {
    id: root

    required property RowItem row
    // Each a `menuAction`; which ones, the row's model says.
    required property var actions

    spacing: 4

    Repeater {
        model: root.row.showsButtons ? root.actions : []
        delegate: GlassButton {
            required property menuAction modelData

            symbol: modelData.symbol
            tip: modelData.text
            tint: modelData.isDestructive ? GlassKit.colors.tintText(GlassKit.colors.red) : GlassKit.colors.text
            Accessible.name: modelData.text
            onClicked: root.row.rows.act(root.row.index, modelData.text)
        }
    }
}
