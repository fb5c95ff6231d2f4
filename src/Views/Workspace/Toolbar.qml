import QtQuick
import Corvane.Theme
import Corvane.Views.Workspace

// Which panel is shown and how, and the way to salvos and labels. Its right end is its fixed point.
Row {
    id: root

    required property ToolbarModel model
    // What it may take at most; in less room buttons do with their symbols.
    required property real available
    readonly property toolbarFit fit: model.fit(available, panels.fullWidth + views.implicitWidth + salvos.fullWidth + labels.fullWidth + 3 * spacing,
        salvos.fullWidth - salvos.iconWidth + labels.fullWidth - labels.iconWidth)

    signal salvosWanted

    spacing: GlassKit.controlSpacing

    GlassButton {
        id: panels

        radius: GlassKit.rowRadius
        symbol: root.model.content.panelSymbol
        text: root.model.content.panelText
        tip: "Switch panel"
        maximumTextWidth: 140
        opensMenu: true
        iconOnly: !root.fit.showsPanelText
    }
    SegmentedPicker {
        id: views

        label: "View"
        texts: root.model.viewModeTexts
        currentIndex: root.model.content.viewMode
        tip: "Switch between the crosspoint matrix and the list view"
        onChosen: index => root.model.chooseViewMode(index)
    }
    GlassButton {
        id: salvos

        radius: GlassKit.rowRadius
        symbol: "rectangle.stack.badge.play"
        text: "Salvos"
        iconOnly: !root.fit.showsButtonTexts
        onClicked: root.salvosWanted()
    }
    GlassButton {
        id: labels

        radius: GlassKit.rowRadius
        symbol: "tag"
        text: "Labels"
        iconOnly: !root.fit.showsButtonTexts
    }
}
