import QtQuick
import Corvane.Views.Salvos

// How high the rows of the manager are. All are of a fixed height, so that the sheet knows its own without making them.
QtObject {
    readonly property real salvo: 49
    readonly property real preview: 20
    // Above the first line of a preview and below the last.
    readonly property real previewPadding: 8
    readonly property real section: 34
    readonly property real note: 40
    readonly property real invitation: 92

    function of(row) {
        if (row.isSalvo)
            return salvo
        if (row.isPreview)
            return preview + (row.isFirst ? previewPadding : 0) + (row.isLast ? previewPadding : 0)
        return row.isNote ? note : row.isInvitation ? invitation : section
    }
    function lengthOf(content) {
        return content.salvos * salvo + content.previewLines * preview + (content.previewLines > 0 ? 2 * previewPadding : 0) + content.sectionTexts * section + content.notes * note + content.invitations * invitation
    }
}
