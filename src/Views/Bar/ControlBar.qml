import QtQuick
import Corvane.Theme
import Corvane.Views.Bar

// The floating bar: levels, cell size, and what is staged. The model arranges the parts by the widths they want, which depend on
// nothing that the arrangement decides.
Item {
    id: root

    required property ControlBarModel model
    // While something else has the keyboard, Return is not the bar's.
    property bool returnTakes: true
    readonly property controlBarContent content: model.content
    readonly property controlBarPlaces places: model.places(content, width,
        Qt.size(levelPicker.implicitWidth, levelPicker.implicitHeight),
        Qt.size(followButton.implicitWidth, followButton.implicitHeight),
        Qt.size(zoomControl.implicitWidth, zoomControl.implicitHeight),
        Qt.size(takeCluster.implicitWidth, takeCluster.implicitHeight))

    implicitHeight: places.bar.height
    visible: content.isShown

    Shortcut {
        sequences: ["Return", "Enter"]
        // Whoever holds it down to end something else takes nothing.
        autoRepeat: false
        enabled: root.returnTakes && root.visible && root.content.canTake
        onActivated: root.model.confirmTake()
    }
    FloatingSurface {
        id: bar

        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        width: root.places.bar.width
        height: root.places.bar.height
        radius: GlassKit.barRadius

        Behavior on width {
            SpringyAnimation {}
        }
        Behavior on height {
            SpringyAnimation {}
        }

        BarPart {
            place: root.places.levelPicker

            SegmentedPicker {
                id: levelPicker

                anchors.fill: parent
                label: "Level"
                texts: root.content.levels
                currentIndex: root.content.level
                onChosen: index => root.model.chooseLevel(index)
            }
        }
        BarPart {
            place: root.places.followButton

            GlassButton {
                id: followButton

                anchors.fill: parent
                text: root.content.followText
                symbol: root.content.followSymbol
                tint: root.content.followTint
                onClicked: root.model.toggleFollow()
            }
        }
        BarPart {
            place: root.places.zoomDivider

            HairLine {
                anchors.fill: parent
            }
        }
        BarPart {
            place: root.places.zoom

            MatrixZoomControl {
                id: zoomControl

                anchors.fill: parent
                embedded: true
                zoom: root.model.zoom
            }
        }
        BarPart {
            place: root.places.takeDivider

            HairLine {
                anchors.fill: parent
            }
        }
        BarPart {
            place: root.places.takeCluster

            TakeCluster {
                id: takeCluster

                model: root.model
            }
        }
    }
}
