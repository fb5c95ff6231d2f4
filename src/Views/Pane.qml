import QtQuick
import Corvane.Theme
import Corvane.Views

// One half of the list: a header, and a row for each port that scrolls below it.
FocusScope {
    id: root

    required property PaneModel model
    // What floats over the lower edge.
    required property real clearance

    function takeKeyboard() {
        rows.takeKeyboard()
    }

    Rectangle {
        anchors.fill: parent
        radius: GlassKit.paneRadius
        color: GlassKit.faded(GlassKit.surface, 0.7)
        border.width: 1
        border.color: GlassKit.separator
    }
    PaneHeader {
        id: header

        width: parent.width
        height: implicitHeight
        model: root.model
    }
    HairLine {
        anchors.bottom: header.bottom
        x: 1
        width: parent.width - 2
        opacity: 0.5
    }
    FontMetrics {
        id: titleMetrics

        font: GlassKit.rowFont
    }
    FontMetrics {
        id: detailMetrics

        font: GlassKit.captionFont
    }
    TextMetrics {
        id: numberMetrics

        font: GlassKit.numberFont
        text: root.model.content.widestNumber
    }
    PaneRows {
        id: rows

        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        // The corners of the pane stay round.
        anchors.bottomMargin: 2
        width: parent.width
        focus: true
        model: root.model
        clearance: root.clearance
        rowHeight: Math.ceil(Math.max(26, titleMetrics.height + 2 + detailMetrics.height)) + 16
        scroll: list.contentY - list.originY + list.topMargin
        Accessible.role: Accessible.List
        onScrollWanted: scroll => list.contentY = scroll + list.originY - list.topMargin
        onMenuRequested: (point, entries) => {
            menu.active = true
            menu.item.entries = entries
            menu.item.popup(rows, point.x, point.y)
        }

        ListView {
            id: list

            anchors.fill: parent
            topMargin: rows.padding
            bottomMargin: rows.padding + rows.clearance
            spacing: rows.spacing
            clip: true
            reuseItems: true
            boundsBehavior: Flickable.StopAtBounds
            keyNavigationEnabled: false
            highlightFollowsCurrentItem: false
            currentIndex: -1
            model: root.model

            WheelHandler {
                acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
                target: null
                onWheel: event => rows.turnWheel(event.pixelDelta, event.angleDelta)
            }

            delegate: SelectableRow {
                id: row

                x: rows.padding
                width: list.width - 2 * rows.padding
                height: rows.rowHeight
                tint: root.model.content.tint
                chipWidth: Math.max(30, Math.ceil(numberMetrics.advanceWidth) + 10)
                focused: rows.showsFocus && rows.focusRow === index
                onClicked: rows.click(index)
                onDoubleClicked: rows.doubleClick(index)
                onBadgeClicked: rows.clickBadge(index)
                onMenuWanted: position => rows.requestMenu(index, row.mapToItem(rows, position))
            }
        }
    }
    ThinScrollBar {
        anchors.right: parent.right
        anchors.rightMargin: 1
        // Beside the rows and the ring around them.
        width: 8
        y: rows.y + 4
        height: rows.height - rows.clearance - 8
        orientation: Qt.Vertical
        extent: rows.contentHeight
        window: rows.height
        offset: rows.scroll
        onMoved: offset => list.contentY = offset + list.originY - list.topMargin
    }
    // Made when first asked for.
    Loader {
        id: menu

        active: false
        sourceComponent: PortMenu {
            onChosen: position => rows.performMenuEntry(position)
        }
    }
}
