import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Velmora

// One button: its name, what it is bound to, and a cross that clears it.
ItemDelegate {
    id: row

    required property int buttonId
    required property string name
    required property string binding
    required property color accent
    required property bool selected
    readonly property bool captured: InputBindings.listening && InputBindings.listeningId === buttonId

    signal cleared

    leftPadding: Theme.gap
    rightPadding: 4
    topPadding: 4
    bottomPadding: 4
    focusPolicy: Qt.NoFocus
    Accessible.name: qsTr("%1: %2").arg(name).arg(binding)

    contentItem: RowLayout {
        spacing: 6

        Label {
            text: row.name
            color: Theme.text
            elide: Text.ElideRight
            Layout.fillWidth: true
        }
        KeyCap {
            text: row.captured ? "…" : row.binding
            accent: row.accent
            lit: row.captured
            // The catalogue's word for a button without a binding.
            faint: row.binding === "None"
            Layout.fillHeight: true
            Layout.preferredWidth: Math.min(150, row.width / 2)
        }
        AbstractButton {
            id: cross
            focusPolicy: Qt.NoFocus
            opacity: row.hovered || row.selected ? 1 : 0
            Layout.preferredWidth: 24
            Layout.fillHeight: true
            Accessible.name: qsTr("Clear %1").arg(row.name)
            onClicked: row.cleared()

            contentItem: Label {
                text: "×"
                color: cross.hovered ? Theme.text : Theme.dimText
                font.pixelSize: 20
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
            }
        }
    }
    background: Rectangle {
        radius: 8
        color: row.hovered ? Theme.rowHovered : Theme.row
        border.width: row.captured || row.selected ? 2 : 0
        border.color: Theme.legible(row.accent)
    }
}
