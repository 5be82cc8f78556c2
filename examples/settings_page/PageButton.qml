import QtQuick
import QtQuick.Controls.Basic

// A push button of the page; the accented one is what most people want.
Button {
    id: button

    property color accent: Theme.row
    readonly property bool accented: accent !== Theme.row

    implicitHeight: 36
    leftPadding: 18
    rightPadding: 18
    Keys.onReturnPressed: click()
    Keys.onEnterPressed: click()

    contentItem: Label {
        text: button.text
        color: Theme.inkOn(button.accent)
        font.weight: Font.DemiBold
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
    background: Rectangle {
        radius: 8
        color: button.down ? Qt.darker(button.accent, 1.2)
                           : button.hovered ? Qt.lighter(button.accent, 1.15) : button.accent
        border.width: button.visualFocus ? 2 : 1
        border.color: button.visualFocus ? Theme.text : Theme.edge
    }
}
