import QtQuick
import Corvane.Theme
import Corvane.Views.Salvos

// How far the router has confirmed a large salvo. Takes no room while there is nothing to wait for.
Item {
    id: root

    required property SalvoProgressModel model
    // In one line, without the space around it.
    property bool isCompact: false

    height: !model.content.isShown ? 0 : isCompact ? GlassKit.controlHeight : 44
    visible: model.content.isShown

    SpokenText {
        x: root.isCompact ? 8 : GlassKit.sideMargin
        y: root.isCompact ? 3 : 11
        width: parent.width - 2 * x
        text: root.model.content.text
        font: GlassKit.captionFont
        color: GlassKit.colors.secondary
    }
    ProgressLine {
        x: root.isCompact ? 8 : GlassKit.sideMargin
        anchors.bottom: parent.bottom
        anchors.bottomMargin: root.isCompact ? 5 : 8
        width: parent.width - 2 * x
        isShown: root.model.content.isShown
        fraction: root.model.content.fraction
        text: root.model.content.text
    }
}
