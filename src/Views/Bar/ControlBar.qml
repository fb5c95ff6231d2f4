import QtQuick
import Corvane.Theme
import Corvane.Views.Bar
import Corvane.Views.Shared

// The floating bar: levels, cell size, and what is staged. All in one line where it fits; else what is staged is on a line of its
// own; else "Follow" is too, and nothing is divided.
Item {
    id: root

    required property ControlBarModel model
    readonly property controlBarContent content: model.content

    // Whoever holds it down to end something else takes nothing.
    function answerReturn(event) {
        const isPlain = !(event.modifiers & ~Qt.KeypadModifier) && !event.isAutoRepeat
        if (isPlain)
            model.confirmTake()
    }

    implicitHeight: bar.fullHeight
    visible: content.isShown

    FloatingSurface {
        id: bar

        readonly property real fullHeight: parts.implicitHeight + 2 * GlassKit.barPadding

        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        width: parts.implicitWidth + 2 * GlassKit.sideMargin
        height: fullHeight
        radius: GlassKit.barRadius

        Behavior on width {
            enabled: bar.width > 2 * GlassKit.sideMargin

            SpringyAnimation {}
        }
        Behavior on height {
            enabled: bar.height > 2 * GlassKit.barPadding

            SpringyAnimation {}
        }

        FittingRow {
            id: parts

            x: GlassKit.sideMargin
            y: GlassKit.barPadding
            width: implicitWidth
            height: implicitHeight
            available: Math.min(root.width, 820) - 2 * GlassKit.sideMargin
            spacing: 14
            lineSpacing: 10

            BarPart {
                isShown: root.content.showsLevels
                FittingRow.lines: [0, 0, 1]
                FittingRow.shrinksFrom: 2

                SegmentedPicker {
                    anchors.fill: parent
                    label: "Level"
                    texts: root.content.levels
                    currentIndex: root.content.level
                    onChosen: index => root.model.chooseLevel(index)
                }
            }
            BarPart {
                isShown: root.content.showsLevels

                GlassButton {
                    anchors.fill: parent
                    text: root.content.followText
                    symbol: root.content.followSymbol
                    tint: root.content.followTint
                    onClicked: root.model.toggleFollow()
                }
            }
            BarPart {
                isShown: root.content.dividesZoom
                FittingRow.shortFrom: 2

                HairLine {
                    anchors.fill: parent
                    implicitHeight: 26
                }
            }
            BarPart {
                isShown: root.content.showsZoom
                FittingRow.lines: [0, 0, 1]

                MatrixZoomControl {
                    anchors.fill: parent
                    embedded: true
                    zoom: root.model.zoom
                }
            }
            BarPart {
                isShown: root.content.dividesTake
                FittingRow.shortFrom: 1

                HairLine {
                    anchors.fill: parent
                    implicitHeight: 28
                }
            }
            BarPart {
                isShown: root.content.showsTake
                FittingRow.lines: [0, 1, 2]

                TakeCluster {
                    model: root.model
                }
            }
        }
    }
}
