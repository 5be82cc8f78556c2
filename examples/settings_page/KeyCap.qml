import QtQuick
import QtQuick.Controls.Basic

// A binding, drawn as the key that it is.
Rectangle {
    id: cap

    property alias text: label.text
    property color accent
    property bool lit: false
    property bool faint: false

    radius: 6
    color: lit ? accent : faint ? "transparent" : Theme.edge
    border.width: 1
    border.color: lit ? accent : Theme.edge

    SequentialAnimation on opacity {
        running: cap.lit
        loops: Animation.Infinite
        alwaysRunToEnd: true
        NumberAnimation { to: 0.55; duration: 450; easing.type: Easing.InOutSine }
        NumberAnimation { to: 1; duration: 450; easing.type: Easing.InOutSine }
    }
    Label {
        id: label
        anchors.fill: parent
        anchors.margins: 2
        color: cap.lit ? Theme.inkOn(cap.accent) : cap.faint ? Theme.dimText : Theme.text
        font.pixelSize: 13
        font.weight: cap.faint ? Font.Normal : Font.DemiBold
        fontSizeMode: Text.Fit
        minimumPixelSize: 6
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
}
