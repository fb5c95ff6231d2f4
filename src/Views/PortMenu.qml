import QtQuick
import Corvane.Theme

// The context menu of a port. `entries` are what is offered there.
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
