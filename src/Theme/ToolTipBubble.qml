import QtQuick
import QtQuick.Templates as T
import Corvane.Theme

// The small text that explains what the pointer rests on.
T.ToolTip {
    id: root

    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? parent.height + 6 : 0
    margins: 6
    padding: 8
    topPadding: 5
    bottomPadding: 5
    width: Math.min(implicitWidth, 420)
    implicitWidth: contentItem.implicitWidth + leftPadding + rightPadding
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    delay: 600
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

    background: GlassSurface {
        radius: 6
        color: GlassKit.colors.raised

        SoftShadow {
            radius: 6
            z: -1
        }
    }
    contentItem: PlainText {
        text: root.text
        font: GlassKit.captionFont
        wrapMode: Text.Wrap
        maximumLineCount: 8
    }
}
