import QtQuick
import Corvane.Theme
import Corvane.Views.Panels

// The menu of the toolbar's panel button: which panel is shown, and the ways to make and change them.
GlassMenu {
    id: root

    required property PanelsModel model

    Repeater {
        model: root.model.tabs
        delegate: GlassMenuItem {
            required property int index
            required property panelItem row

            text: root.model.tabs.menuText(row)
            symbol: row.isActive ? "checkmark" : row.size === "" ? "rectangle.grid.3x2" : "rectangle.grid.1x2"
            Accessible.role: Accessible.RadioButton
            Accessible.checkable: true
            Accessible.checked: row.isActive
            onTriggered: root.model.tabs.activate(index)
        }
    }
    GlassMenuSeparator {}
    GlassMenuItem {
        text: "New Panel…"
        symbol: "plus"
        onTriggered: root.model.addPanel()
    }
    GlassMenuItem {
        visible: root.model.content.hasPanels
        text: "Edit Panels…"
        symbol: "slider.horizontal.3"
        onTriggered: root.model.openManager()
    }
}
