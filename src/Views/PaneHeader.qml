import QtQuick
import Corvane.Theme
import Corvane.Views

// What a pane of the list holds, and what can be done with all of it at once. What there is no room for is left out.
Item {
    id: root

    required property PaneModel model
    readonly property paneContent content: model.content
    readonly property paneHeaderFit fit: model.headerFit(content, width - 2 * GlassKit.sideMargin, title.implicitWidth, subtitle.implicitWidth,
        count.implicitWidth, actions.labelledWidth, actions.iconWidth)

    implicitHeight: GlassKit.controlHeight + 2 * 12

    Row {
        anchors.verticalCenter: parent.verticalCenter
        x: GlassKit.sideMargin
        spacing: GlassKit.controlSpacing

        TintShape {
            anchors.verticalCenter: parent.verticalCenter
            width: 9
            height: 9
            radius: 4.5
            color: root.content.tint
        }
        PlainText {
            id: title

            anchors.verticalCenter: parent.verticalCenter
            visible: root.fit.showsTitle
            text: root.content.title
            font: GlassKit.titleFont
            Accessible.role: Accessible.Heading
            Accessible.name: text
            Accessible.ignored: !visible
        }
        PlainText {
            id: subtitle

            anchors.baseline: title.baseline
            visible: root.fit.subtitleWidth > 0
            width: root.fit.subtitleWidth
            text: root.content.subtitle
            font: GlassKit.subtitleFont
            color: GlassKit.secondary
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            Accessible.ignored: !visible
        }
    }
    Row {
        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: GlassKit.sideMargin
        spacing: GlassKit.controlSpacing

        Rectangle {
            id: count

            anchors.verticalCenter: parent.verticalCenter
            visible: root.fit.showsCount
            implicitWidth: number.implicitWidth + 16
            implicitHeight: number.implicitHeight + 6
            radius: height / 2
            color: GlassKit.quaternary
            Accessible.role: Accessible.StaticText
            Accessible.name: number.text
            Accessible.ignored: !visible

            PlainText {
                id: number

                anchors.centerIn: parent
                text: root.content.count
                font: GlassKit.captionStrongFont
                color: GlassKit.secondary
                Accessible.ignored: true
            }
        }
        PaneActions {
            id: actions

            model: root.model
            showsLabels: root.fit.showsLabels
        }
    }
}
