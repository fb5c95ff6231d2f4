import QtQuick
import Corvane.Theme

// One symbol, in a box of `size` by `size`. Pure decoration: what it stands for is told by whoever uses it.
Text {
    id: root

    property string name
    property real size: 16

    width: size
    height: size
    text: GlassKit.symbolText(name)
    font: GlassKit.symbolFont(size)
    color: GlassKit.colors.text
    horizontalAlignment: Text.AlignHCenter
    verticalAlignment: Text.AlignVCenter
    Accessible.ignored: true
}
