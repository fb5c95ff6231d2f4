import QtQuick
import Corvane.Theme
import Corvane.Views.List
import Corvane.Views.Shared

// What a pane of the list holds, and what can be done with all of it at once. In little room first the actions lose their texts,
// then the count goes, then the title. A subtitle that is less important than the title is cut before any of that.
FittingRow {
    id: root

    required property PaneModel model
    readonly property paneContent content: model.content

    // A button that had the keyboard is gone.
    signal keyboardFreed

    spacing: GlassKit.controlSpacing

    TintShape {
        width: 9
        height: 9
        radius: 4.5
        color: root.content.tint
    }
    SpokenText {
        text: root.content.title
        font: GlassKit.titleFont
        FittingRow.shortFrom: 3
        Accessible.role: Accessible.Heading
    }
    SpokenText {
        text: root.content.subtitle
        font: GlassKit.subtitleFont
        color: GlassKit.colors.secondary
        FittingRow.shrinksFrom: root.content.subtitleIsPriority ? 3 : 0
        FittingRow.leastWidth: 28
        FittingRow.onBaseline: true
    }
    Rectangle {
        implicitWidth: number.implicitWidth + 16
        implicitHeight: number.implicitHeight + 6
        radius: height / 2
        color: GlassKit.colors.quaternary
        FittingRow.shortFrom: 2
        FittingRow.atEnd: true

        SpokenText {
            id: number

            anchors.centerIn: parent
            text: root.content.count
            font: GlassKit.captionStrongFont
            color: GlassKit.colors.secondary
        }
    }
    HeaderAction {
        model: root.model
        position: 0
        onKeyboardFreed: root.keyboardFreed()
    }
    HeaderAction {
        model: root.model
        position: 1
        onKeyboardFreed: root.keyboardFreed()
    }
}
