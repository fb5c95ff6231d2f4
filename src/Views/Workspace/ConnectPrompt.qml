import QtQuick
import Corvane.Theme
import Corvane.Views.Workspace

// A router that is not connected, and the way to change that.
EmptyState {
    id: root

    required property ConnectPromptModel model

    symbol: model.content.symbol
    title: model.content.name
    tint: model.content.tint
    description: model.content.address

    StatusPill {
        anchors.horizontalCenter: parent.horizontalCenter
        status: root.model.content.status
    }
    // Keeps its first line while there is nothing to tell, so that the button stays under the pointer.
    SpokenText {
        id: message

        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        text: root.model.content.message
        font: GlassKit.calloutFont
        color: root.model.content.isFailure ? GlassKit.colors.tintText(GlassKit.colors.red) : GlassKit.colors.secondary
        wrapMode: Text.Wrap
        maximumLineCount: 4

        Tip {
            text: message.truncated ? message.text : ""
        }
    }
    ProgressLine {
        anchors.horizontalCenter: parent.horizontalCenter
        isShown: root.model.content.showsProgress
        fraction: root.model.content.progress
        text: root.model.content.progressText
        tint: root.model.content.tint
    }
    ProminentButton {
        anchors.horizontalCenter: parent.horizontalCenter
        implicitHeight: 34
        focus: true
        text: root.model.content.buttonText
        symbol: root.model.content.buttonSymbol
        onClicked: root.model.pressButton()
    }
}
