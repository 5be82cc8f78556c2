import QtQuick
import Velmora

// The two devices side by side; the one being edited is lit.
Row {
    id: devices

    required property color accent

    spacing: 4

    Repeater {
        model: [
            { device: "keyboard", label: qsTr("Keyboard") },
            { device: "gamepad", label: qsTr("Gamepad") }
        ]

        PageButton {
            required property var modelData

            text: modelData.label
            accent: InputBindings.device === modelData.device ? devices.accent : Theme.row
            onClicked: {
                InputBindings.device = modelData.device;
                InputBindings.prepare();
            }
        }
    }
}
