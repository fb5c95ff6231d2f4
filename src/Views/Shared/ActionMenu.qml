import QtQuick
import Corvane.Theme
import Corvane.Views.Shared

// The context menu of a place. `actions` are what is offered there, each a `menuAction`.
GlassMenu {
    id: root

    property var actions: []

    signal chosen(string text)

    Repeater {
        model: root.actions
        delegate: GlassMenuItem {
            required property menuAction modelData

            text: modelData.text
            symbol: modelData.symbol
            destructive: modelData.isDestructive
            enabled: modelData.isEnabled
            onTriggered: root.chosen(modelData.text)
        }
    }
}
