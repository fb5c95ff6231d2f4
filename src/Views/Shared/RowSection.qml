import QtQuick
import Corvane.Theme
import Corvane.Views.Shared

// The head of a section of a `RowList`, or its foot: a row of the model that the keyboard passes over.
Item {
    id: root

    required property int index
    required property string text
    property alias font: label.font
    default property alias trailing: end.data

    readonly property RowList list: ListView.view ? ListView.view.parent.parent as RowList : null

    x: list ? list.sidePadding : 0
    width: list ? list.width - 2 * x : 0
    implicitHeight: Math.max(label.implicitHeight, end.childrenRect.height) + 2 * 6

    PlainText {
        id: label

        anchors.verticalCenter: parent.verticalCenter
        anchors.left: parent.left
        anchors.right: end.left
        text: root.text
        font: GlassKit.captionStrongFont
        color: GlassKit.colors.secondary
        wrapMode: Text.Wrap
        maximumLineCount: 3
        Accessible.ignored: true
    }
    Item {
        id: end

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        width: childrenRect.width
        height: childrenRect.height
    }
}
