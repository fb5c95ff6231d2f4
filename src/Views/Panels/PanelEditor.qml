import QtQuick
import Corvane.Theme
import Corvane.Views.Panels

// Which ports a panel has, and what it is called.
GlassSheet {
    id: root

    required property PanelEditorModel model
    readonly property panelEditorContent shown: model.content

    title: shown.title
    preferredWidth: 720
    contentLength: 620
    onDismissed: model.cancel()
    actions: [
        GlassField {
            width: 170
            placeholderText: "Filter ports"
            text: root.model.search
            Accessible.name: "Filter ports"
            onTextEdited: root.model.search = text
        },
        GlassButton {
            radius: GlassKit.rowRadius
            text: "Cancel"
            onClicked: root.dismissed()
        },
        ProminentButton {
            radius: GlassKit.rowRadius
            text: root.shown.saveText
            available: root.shown.isSavable
            onClicked: root.model.commit()
        }
    ]

    SpokenText {
        id: nameLabel

        anchors.verticalCenter: name.verticalCenter
        x: GlassKit.sideMargin
        text: "Panel Name"
        color: GlassKit.colors.secondary
    }
    GlassField {
        id: name

        anchors.left: nameLabel.right
        anchors.leftMargin: 12
        anchors.right: parent.right
        anchors.rightMargin: GlassKit.sideMargin
        y: 12
        focus: true
        text: root.model.name
        Accessible.name: nameLabel.text
        Component.onCompleted: selectAll()
        onTextEdited: root.model.name = text
        onAccepted: root.model.commit()
    }
    Row {
        id: missing

        anchors.top: name.bottom
        x: GlassKit.sideMargin
        height: label.visible ? label.implicitHeight + 2 * 8 : 12
        spacing: 6

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            visible: label.visible
            name: "exclamationmark.triangle.fill"
            size: 15
            color: label.color
        }
        SpokenText {
            id: label

            anchors.verticalCenter: parent.verticalCenter
            visible: text !== ""
            text: root.shown.missing
            font: GlassKit.captionFont
            color: GlassKit.colors.tintText(GlassKit.colors.orange)
        }
    }
    HairLine {
        id: line

        anchors.top: missing.bottom
        width: parent.width
    }
    PanelAxisList {
        anchors.top: line.bottom
        anchors.bottom: parent.bottom
        width: Math.floor(parent.width / 2)
        axis: root.model.sources
    }
    Rectangle {
        anchors.top: line.bottom
        anchors.bottom: parent.bottom
        x: Math.floor(parent.width / 2)
        width: 1
        color: GlassKit.colors.separator
    }
    PanelAxisList {
        anchors.top: line.bottom
        anchors.bottom: parent.bottom
        anchors.right: parent.right
        width: parent.width - Math.floor(parent.width / 2) - 1
        axis: root.model.destinations
    }
}
