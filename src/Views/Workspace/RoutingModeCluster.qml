import QtQuick
import Corvane.Theme
import Corvane.Views.Workspace

// How a click becomes a route: at once or staged, destination first or source first.
Item {
    id: root

    required property RoutingModeClusterModel model
    property bool standalone: true

    implicitWidth: row.implicitWidth + (standalone ? 2 * GlassKit.sideMargin : 0)
    implicitHeight: row.implicitHeight + (standalone ? 2 * GlassKit.barPadding : 0)

    GlassSurface {
        anchors.fill: parent
        visible: root.standalone
    }
    Row {
        id: row

        anchors.centerIn: parent
        spacing: 10

        SegmentedPicker {
            label: "Take"
            texts: root.model.takeModeTexts
            symbols: root.model.takeModeSymbols
            currentIndex: root.model.content.takeMode
            tip: root.model.content.takeModeTip
            onChosen: index => root.model.chooseTakeMode(index)
        }
        HairLine {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.model.content.showsDirection
            height: 22
        }
        SegmentedPicker {
            visible: root.model.content.showsDirection
            label: "Direction"
            texts: root.model.directionTexts
            currentIndex: root.model.content.direction
            tip: root.model.content.directionTip
            onChosen: index => root.model.chooseDirection(index)
        }
    }
}
