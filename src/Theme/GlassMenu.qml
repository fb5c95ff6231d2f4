import QtQuick
import QtQuick.Templates as T
import Corvane.Theme

// A context menu or the menu of a button. Fill it with `GlassMenuItem`s.
T.Menu {
    id: root

    // The press that closes it does nothing else.
    modal: true
    dim: false
    margins: 8
    padding: 5
    overlap: 4
    implicitWidth: Math.max(160, list.contentWidth + leftPadding + rightPadding)
    implicitHeight: list.contentHeight + topPadding + bottomPadding

    background: FloatingSurface {
        radius: 9
        color: GlassKit.colors.raised
    }
    contentItem: ListView {
        id: list

        implicitHeight: contentHeight
        contentWidth: {
            let widest = 0
            for (let i = 0; i < root.count; ++i)
                widest = Math.max(widest, root.itemAt(i).implicitWidth)
            return widest
        }
        model: root.contentModel
        interactive: false
        currentIndex: root.currentIndex
    }
}
