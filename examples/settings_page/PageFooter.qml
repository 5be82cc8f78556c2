import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Velmora

RowLayout {
    id: footer

    required property color accent

    signal accepted
    signal rejected

    spacing: Theme.gap

    PageButton {
        text: qsTr("Reset to defaults")
        onClicked: InputBindings.resetSystem()
    }
    Label {
        text: qsTr("Click or Return binds, Delete clears")
        color: Theme.dimText
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignHCenter
        Layout.fillWidth: true
    }
    PageButton {
        text: qsTr("Cancel")
        onClicked: footer.rejected()
    }
    PageButton {
        text: qsTr("OK")
        accent: footer.accent
        onClicked: footer.accepted()
    }
}
