import QtQuick
import Corvane.Theme
import Corvane.Views.Panels
import Corvane.Views.Shared
import Corvane.Views.Workspace

// Which panel is shown and how, and the way to salvos and labels. In little room first "Salvos" and "Labels" do with their symbols,
// then the panel's menu does.
FittingRow {
    id: root

    required property ToolbarModel model
    required property PanelsModel panels

    signal salvosWanted

    spacing: GlassKit.controlSpacing

    GlassButton {
        id: panelButton

        radius: GlassKit.rowRadius
        symbol: root.model.content.panelSymbol
        text: root.model.content.panelText
        // Not over its own menu.
        tip: panelMenu.active ? "" : "Switch panel"
        maximumTextWidth: 140
        opensMenu: true
        iconOnly: FittingRow.isShort
        FittingRow.fullWidth: fullWidth
        FittingRow.shortFrom: 2
        FittingRow.shortWidth: iconWidth
        onClicked: {
            panelMenu.active = true
            const menu = panelMenu.item as PanelMenuContent
            menu.popup(panelButton, 0, height + 4)
        }

        // Made when first asked for.
        Loader {
            id: panelMenu

            active: false
            sourceComponent: PanelMenuContent {
                model: root.panels
                onClosed: panelMenu.active = false
            }
        }
    }
    SegmentedPicker {
        label: "View"
        texts: root.model.viewModeTexts
        currentIndex: root.model.content.viewMode
        tip: "Switch between the crosspoint matrix and the list view"
        onChosen: index => root.model.chooseViewMode(index)
    }
    GlassButton {
        radius: GlassKit.rowRadius
        symbol: "rectangle.stack.badge.play"
        text: "Salvos"
        iconOnly: FittingRow.isShort
        FittingRow.fullWidth: fullWidth
        FittingRow.shortFrom: 1
        FittingRow.shortWidth: iconWidth
        onClicked: root.salvosWanted()
    }
    GlassButton {
        radius: GlassKit.rowRadius
        symbol: "tag"
        text: "Labels"
        iconOnly: FittingRow.isShort
        FittingRow.fullWidth: fullWidth
        FittingRow.shortFrom: 1
        FittingRow.shortWidth: iconWidth
    }
}
