import QtQuick
import Corvane.Theme
import Corvane.Views.Salvos

// One line of what firing a salvo would do: a crosspoint that changes, its parts in columns, or a sentence.
Item {
    id: root

    required property salvoPreviewLine line
    required property real topPadding
    required property real lineHeight
    readonly property color ink: line.isLocked || line.isWarning ? GlassKit.colors.tintText(GlassKit.colors.orange) : GlassKit.colors.secondary
    readonly property real levelWidth: line.level === "" ? 0 : 76
    // The columns of all lines stand below one another.
    readonly property real nameWidth: Math.min(128, (width - 44 - 76 - 22 - 90) / 2)

    Row {
        x: 44
        y: root.topPadding
        width: parent.width - x - 6
        height: root.lineHeight
        visible: root.line.isChange

        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            width: root.levelWidth
            rightPadding: 8
            visible: width > 0
            text: root.line.level
            font: GlassKit.captionFont
            color: GlassKit.colors.secondary
        }
        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            width: root.nameWidth
            rightPadding: 8
            text: root.line.destination
            font: GlassKit.calloutFont
            color: GlassKit.colors.tintText(GlassKit.colors.orange)
        }
        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            width: 22
            horizontalAlignment: Text.AlignLeft
            name: "arrow.left"
            size: 14
            color: GlassKit.colors.secondary
        }
        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            width: root.nameWidth
            rightPadding: 8
            text: root.line.source
            font: GlassKit.calloutFont
            color: GlassKit.colors.tintText(GlassKit.colors.green)
        }
        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - x
            text: root.line.before
            font: GlassKit.captionFont
            color: GlassKit.colors.secondary
        }
    }
    Row {
        x: 44
        y: root.topPadding
        width: parent.width - x - 6
        height: root.lineHeight
        visible: !root.line.isChange
        spacing: 6

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.line.isLocked
            name: "lock.fill"
            size: 12
            color: root.ink
        }
        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - x
            text: root.line.text
            font: GlassKit.captionFont
            color: root.ink
        }
    }
}
