import QtQuick
import QtQuick.Controls.Basic

// A titled surface; what stands inside it fills the room below the title.
Rectangle {
    id: panel

    property alias title: heading.text
    default property alias content: body.data

    color: Theme.panel
    radius: Theme.radius

    Label {
        id: heading
        height: Theme.titleHeight
        width: parent.width
        leftPadding: Theme.gap
        rightPadding: Theme.gap
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        color: Theme.dimText
        font.weight: Font.DemiBold
    }
    Item {
        id: body
        anchors.fill: parent
        anchors.margins: Theme.gap / 2
        anchors.topMargin: Theme.titleHeight
    }
}
