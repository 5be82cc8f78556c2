import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Velmora

// Every system with its short name and colour; the chosen one is the one being edited.
ListView {
    id: list

    required property var systems

    readonly property int chosen: systems.findIndex(entry => entry.id === InputBindings.systemId)

    model: systems
    currentIndex: chosen
    clip: true
    spacing: 2
    activeFocusOnTab: true
    boundsBehavior: Flickable.StopAtBounds
    highlightMoveDuration: 0
    ScrollBar.vertical: ScrollBar {}
    Component.onCompleted: positionViewAtIndex(chosen, ListView.Contain)

    // The list follows the object and not the other way round, so Up and Down ask the object.
    function choose(index: int) {
        if (index >= 0 && index < systems.length)
            InputBindings.systemId = systems[index].id;
    }
    keyNavigationEnabled: false
    Keys.onUpPressed: choose(chosen - 1)
    Keys.onDownPressed: choose(chosen + 1)

    delegate: ItemDelegate {
        id: entry

        required property int index
        required property var modelData
        readonly property color accent: modelData.accent

        width: list.width
        height: Theme.rowHeight
        padding: 6
        focusPolicy: Qt.NoFocus
        onClicked: {
            list.forceActiveFocus();
            list.choose(index);
        }

        contentItem: RowLayout {
            spacing: 10

            Rectangle {
                color: entry.accent
                radius: 5
                Layout.preferredWidth: 50
                Layout.fillHeight: true

                Label {
                    anchors.fill: parent
                    anchors.margins: 2
                    text: entry.modelData.short
                    color: Theme.inkOn(entry.accent)
                    font.pixelSize: 13
                    font.weight: Font.Bold
                    fontSizeMode: Text.HorizontalFit
                    minimumPixelSize: 7
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                }
            }
            Label {
                text: entry.modelData.label
                color: entry.ListView.isCurrentItem ? Theme.text : Theme.dimText
                elide: Text.ElideRight
                Layout.fillWidth: true
            }
        }
        background: Rectangle {
            radius: 8
            color: entry.ListView.isCurrentItem ? Theme.rowHovered
                                                : entry.hovered ? Theme.row : "transparent"
            border.width: entry.ListView.isCurrentItem && list.activeFocus ? 2 : 0
            border.color: Theme.legible(entry.accent)
        }
    }
}
