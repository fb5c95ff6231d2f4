import QtQuick
import Corvane.Theme
import Corvane.Views.Salvos

// The head of a section of the manager, its foot, or a note about all of it.
Item {
    id: root

    required property salvoRow row

    Symbol {
        id: symbol

        anchors.verticalCenter: parent.verticalCenter
        x: 6
        visible: root.row.isNote
        name: "bolt.slash.fill"
        size: 16
        color: GlassKit.colors.secondary
    }
    PlainText {
        x: root.row.isNote ? symbol.x + symbol.width + 8 : 6
        y: root.row.isHead ? 14 : root.row.isFoot ? 8 : (parent.height - height) / 2
        width: parent.width - x - 6
        text: root.row.text
        font: root.row.isHead ? GlassKit.captionStrongFont : root.row.isFoot ? GlassKit.captionFont : GlassKit.calloutFont
        color: GlassKit.colors.secondary
        wrapMode: root.row.isFoot ? Text.Wrap : Text.NoWrap
        maximumLineCount: root.row.isFoot ? 2 : 1
    }
}
