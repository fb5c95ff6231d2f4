import QtQuick
import Corvane.App
import Corvane.Theme
import Corvane.Views.Sidebar
import Corvane.Views.Workspace

// The window: the routers on the left, the open one on the right.
FocusScope {
    id: root

    required property ContentViewModel model

    focus: true

    RouterSidebar {
        id: sidebar

        anchors.top: parent.top
        anchors.bottom: saveProblem.top
        width: divider.position
        model: root.model.sidebar
    }
    SaveProblem {
        id: saveProblem

        anchors.bottom: parent.bottom
        width: divider.position
        height: implicitHeight
        model: root.model
    }
    FocusScope {
        id: detail

        anchors.left: sidebar.right
        anchors.right: parent.right
        height: parent.height
        focus: true

        // A screen of its own for each router that is opened.
        Repeater {
            model: root.model.workspaces

            CorvaneView {
                required property WorkspaceModel modelData

                anchors.fill: parent
                focus: true
                model: modelData
            }
        }
        Loader {
            anchors.fill: parent
            active: root.model.workspaces.length === 0
            sourceComponent: Rectangle {
                color: GlassKit.colors.window

                EmptyState {
                    anchors.fill: parent
                    symbol: "point.3.connected.trianglepath.dotted"
                    title: "Select a Router"
                    description: "Choose a router from the sidebar, or add a new one."
                }
            }
        }
    }
    SplitDivider {
        id: divider

        height: parent.height
        minimum: 240
        maximum: 360
        position: 280
    }
}
