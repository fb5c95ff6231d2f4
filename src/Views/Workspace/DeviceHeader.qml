import QtQuick
import Corvane.Theme
import Corvane.Views.Shared
import Corvane.Views.Workspace

// What device this is, how large, and whether it is there. In little room its lamp does without its word, and what is left is cut.
Item {
    id: root

    required property DeviceHeaderModel model
    readonly property int iconWidth: 28
    // Between the parts, in little room and otherwise.
    readonly property int narrowGap: 8
    readonly property int roomyGap: 16
    readonly property alias surfaceWidth: surface.width

    implicitHeight: surface.implicitHeight

    GlassSurface {
        id: surface

        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(root.width, 940)
        height: root.height
        implicitHeight: row.implicitHeight + 2 * GlassKit.barPadding

        FittingRow {
            id: row

            anchors.fill: parent
            anchors.leftMargin: GlassKit.sideMargin
            anchors.rightMargin: GlassKit.sideMargin
            spacing: root.narrowGap

            Item {
                implicitHeight: titles.implicitHeight
                FittingRow.fullWidth: root.iconWidth + root.roomyGap - root.narrowGap
                FittingRow.shortFrom: 1
                FittingRow.shortWidth: root.iconWidth

                Symbol {
                    anchors.verticalCenter: parent.verticalCenter
                    width: root.iconWidth
                    name: root.model.content.symbol
                    size: 22
                    color: root.model.content.tint
                }
            }
            Column {
                id: titles

                spacing: 2
                FittingRow.fullWidth: Math.ceil(Math.max(title.implicitWidth, specs.implicitWidth))
                FittingRow.shrinksFrom: 1

                SpokenText {
                    id: title

                    width: parent.width
                    text: root.model.content.title
                    font: GlassKit.titleFont
                    Accessible.role: Accessible.Heading
                }
                SpokenText {
                    id: specs

                    width: parent.width
                    text: root.model.content.specs
                    font: GlassKit.captionFont
                    color: GlassKit.colors.secondary
                }
            }
            Item {
                id: lamp

                implicitHeight: titles.implicitHeight
                FittingRow.fullWidth: pill.implicitWidth + root.roomyGap - root.narrowGap
                FittingRow.shortFrom: 1
                FittingRow.shortWidth: dot.implicitWidth + 4
                FittingRow.atEnd: true

                StatusPill {
                    id: pill

                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    visible: !lamp.FittingRow.isShort
                    status: root.model.content.status
                }
                StatusDot {
                    id: dot

                    anchors.verticalCenter: parent.verticalCenter
                    visible: lamp.FittingRow.isShort
                    status: root.model.content.status
                }
            }
        }
    }
}
