import QtQuick
import Corvane.Theme

// Text that a screen reader reads out where it stands.
PlainText {
    Accessible.role: Accessible.StaticText
    Accessible.name: text
    Accessible.ignored: !visible || text === ""
}
