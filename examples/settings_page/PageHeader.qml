import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Velmora

// What is being edited: the system's name, the device, and which gamepad is there.
RowLayout {
    id: header

    required property string title
    required property color accent

    spacing: Theme.gap

    Rectangle {
        color: header.accent
        radius: 3
        Layout.preferredWidth: 6
        Layout.preferredHeight: 36
    }
    Label {
        text: header.title
        color: Theme.text
        elide: Text.ElideRight
        font.pixelSize: 26
        font.weight: Font.Bold
        Layout.fillWidth: true
    }
    Label {
        text: InputBindings.gamepadName
        color: Theme.dimText
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignRight
        Layout.maximumWidth: 260
    }
    DeviceSwitch {
        accent: header.accent
    }
}
