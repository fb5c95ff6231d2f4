import QtQuick
import Corvane.Theme

// One choice of a few, side by side. The keyboard reaches it as one thing, and its arrows move the choice. When there is not
// enough room it scrolls.
FocusScope {
    id: root

    required property string label
    property list<string> texts
    // By position; empty, or one for each text.
    property list<string> symbols
    property int currentIndex: -1
    property string tip
    // What is chosen at first is simply there; only a change that was asked for is seen to move.
    property bool wasUsed: false
    readonly property Item currentSegment: segments.count > currentIndex && currentIndex >= 0 ? segments.itemAt(currentIndex) : null

    signal chosen(int index)

    function step(by) {
        const next = Math.max(0, Math.min(texts.length - 1, currentIndex + by))
        if (next !== currentIndex)
            chosen(next)
    }

    implicitWidth: row.implicitWidth + 4
    implicitHeight: GlassKit.controlHeight
    activeFocusOnTab: true
    Accessible.role: Accessible.Grouping
    Accessible.name: label
    Accessible.description: tip
    Accessible.ignored: !visible
    onChosen: wasUsed = true
    Keys.onLeftPressed: step(-1)
    Keys.onRightPressed: step(1)
    onCurrentSegmentChanged: scroller.reveal(currentSegment)

    Rectangle {
        anchors.fill: parent
        radius: 8
        color: GlassKit.colors.quaternary
    }
    Flickable {
        id: scroller

        function reveal(item) {
            if (item && contentWidth > width)
                contentX = Math.max(0, Math.min(contentWidth - width, item.x + item.width / 2 - width / 2))
        }

        anchors.fill: parent
        anchors.margins: 2
        contentWidth: row.implicitWidth
        interactive: contentWidth > width
        boundsBehavior: Flickable.StopAtBounds
        clip: interactive
        onWidthChanged: reveal(root.currentSegment)

        Rectangle {
            id: thumb

            visible: root.currentSegment !== null
            x: root.currentSegment ? root.currentSegment.x : 0
            width: root.currentSegment ? root.currentSegment.width : 0
            height: scroller.height
            radius: 6
            color: GlassKit.colors.selectedSegment
            border.width: GlassKit.colors.isDark ? 0 : 1
            border.color: GlassKit.colors.separator

            Behavior on x {
                enabled: root.wasUsed

                NumberAnimation {
                    duration: GlassKit.layoutSpringDuration
                    easing: GlassKit.layoutSpring
                }
            }
        }
        Row {
            id: row

            height: scroller.height
            onPositioningComplete: scroller.reveal(root.currentSegment)

            Repeater {
                id: segments

                model: root.texts

                PickerSegment {
                    required property int index
                    required property string modelData

                    text: modelData
                    symbol: root.symbols.length > index ? root.symbols[index] : ""
                    selected: index === root.currentIndex
                    height: row.height
                    onClicked: root.chosen(index)
                }
            }
        }
    }
    FocusRing {
        shown: root.activeFocus
        radius: 10
    }
    Tip {
        text: root.tip
    }
}
