import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Velmora

// Stands in the footer's place while a press is waited for.
Rectangle {
    id: bar

    required property color accent
    readonly property bool onPad: InputBindings.device === "gamepad"

    color: Theme.row
    radius: Theme.radius
    border.width: 2
    border.color: Theme.legible(accent)

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.gap
        anchors.rightMargin: 4
        spacing: Theme.gap

        Label {
            text: (bar.onPad ? qsTr("Press a pad button for %1…") : qsTr("Press a key for %1…"))
                    .arg(InputBindings.listeningName)
            color: Theme.text
            font.pixelSize: 17
            font.weight: Font.Bold
        }
        Label {
            text: bar.onPad ? qsTr("%1 · Escape cancels").arg(InputBindings.gamepadName)
                            : qsTr("Escape cancels")
            color: Theme.dimText
            elide: Text.ElideRight
            Layout.fillWidth: true
        }
        PageButton {
            text: qsTr("Stop")
            focusPolicy: Qt.NoFocus
            onClicked: InputBindings.cancelListen()
        }
    }
}
