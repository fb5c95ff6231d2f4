import QtQuick
import Corvane.Theme

// The context menu of a header. `entries` are what the grid offers there.
GlassMenu {
    id: root

    property var entries: []

    signal chosen(int position)

    Repeater {
        model: root.entries
        delegate: GlassMenuItem {
            required property int index
            required property var modelData

            text: modelData.text
            symbol: modelData.symbol
            onTriggered: root.chosen(index)
        }
    }
}
