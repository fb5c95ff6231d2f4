import QtQuick
import Corvane.Theme
import Corvane.Views.Workspace

// What device this is, how large, and whether it is there. Falls back to a lamp without its word when there is little room.
Item {
    id: root

    required property DeviceHeaderModel model
    readonly property int iconWidth: 28
    readonly property alias surfaceWidth: surface.width
    readonly property real titlesWidth: Math.max(title.implicitWidth, specs.implicitWidth)
    readonly property real roomyWidth: iconWidth + titlesWidth + pill.implicitWidth + 2 * 16
    readonly property bool isCompact: roomyWidth > surface.width - 2 * GlassKit.sideMargin

    implicitHeight: surface.implicitHeight

    GlassSurface {
        id: surface

        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(root.width, 940)
        height: root.height
        implicitHeight: titles.implicitHeight + 2 * GlassKit.barPadding

        Symbol {
            id: icon

            anchors.verticalCenter: parent.verticalCenter
            x: GlassKit.sideMargin
            width: root.iconWidth
            name: root.model.content.symbol
            size: 22
            color: root.model.content.tint
        }
        Column {
            id: titles

            anchors.verticalCenter: parent.verticalCenter
            anchors.left: icon.right
            anchors.leftMargin: root.isCompact ? 8 : 16
            anchors.right: root.isCompact ? dot.left : pill.left
            anchors.rightMargin: 8
            spacing: 2

            PlainText {
                id: title

                width: parent.width
                text: root.model.content.title
                font: GlassKit.titleFont
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }
            PlainText {
                id: specs

                width: parent.width
                text: root.model.content.specs
                font: GlassKit.captionFont
                color: GlassKit.colors.secondary
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }
        StatusPill {
            id: pill

            anchors.verticalCenter: parent.verticalCenter
            anchors.right: parent.right
            anchors.rightMargin: GlassKit.sideMargin
            visible: !root.isCompact
            status: root.model.content.status
        }
        StatusDot {
            id: dot

            anchors.verticalCenter: parent.verticalCenter
            anchors.right: parent.right
            anchors.rightMargin: GlassKit.sideMargin + 4
            visible: root.isCompact
            status: root.model.content.status
        }
    }
}
