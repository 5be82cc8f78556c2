import QtQuick
import Velmora

// The system's pad with what each button is bound to, in short; a click binds, like one on a row.
Rectangle {
    id: pad

    required property var rows
    required property color accent

    readonly property real unit: Math.min(width / 12.8, height / 5.6)
    readonly property bool hasStick: ["atari", "stick"].includes(InputBindings.padStyle)
    readonly property bool hasDiamond: rows.some(row => row.id === 9)
    // Without shoulder buttons the pad itself stands in the middle.
    readonly property real lift: rows.some(row => row.id >= 10) ? 0 : 0.45 * unit

    // Where each button's middle is, in units from the picture's middle, by libretro joypad id.
    readonly property var places: ({
        4: Qt.point(-4.2, -0.6), 5: Qt.point(-4.2, 1.4), 6: Qt.point(-5.2, 0.4), 7: Qt.point(-3.2, 0.4),
        2: Qt.point(-1, 1.4), 3: Qt.point(1, 1.4),
        10: Qt.point(-4.6, -2), 11: Qt.point(4.6, -2), 12: Qt.point(-2.2, -2), 13: Qt.point(2.2, -2)
    })
    readonly property var diamond: ({
        0: Qt.point(4.2, 1.4), 8: Qt.point(5.2, 0.4), 1: Qt.point(3.2, 0.4), 9: Qt.point(4.2, -0.6)
    })
    readonly property var line: ({
        1: Qt.point(3, 0.8), 0: Qt.point(4.1, 0.5), 8: Qt.point(5.2, 0.2)
    })

    function place(id: int): point {
        return places[id] ?? (hasDiamond ? diamond : line)[id] ?? Qt.point(0, 0);
    }

    color: Theme.panel
    radius: Theme.radius

    Rectangle {
        color: Theme.row
        width: pad.unit * 12.2
        height: pad.unit * 3.7
        radius: height / 2
        x: (pad.width - width) / 2
        y: pad.height / 2 + 0.45 * pad.unit - pad.lift - height / 2
    }
    Repeater {
        model: pad.rows.length

        KeyCap {
            required property int index
            readonly property var row: pad.rows[index] ?? { id: -1 }
            readonly property point middle: pad.place(row.id)
            readonly property bool isDirection: row.id >= 4 && row.id <= 7
            readonly property bool isWide: row.id === 2 || row.id === 3 || row.id >= 10

            width: pad.unit * (isWide ? 1.9 : 1)
            height: pad.unit * (isWide ? 0.75 : 1)
            x: pad.width / 2 + middle.x * pad.unit - width / 2
            y: pad.height / 2 + middle.y * pad.unit - pad.lift - height / 2
            radius: isDirection && !pad.hasStick ? 4 : height / 2
            // Evaluated again with each new list of rows, that is at each change of the mapping.
            text: InputBindings.bindingCaption(row.id)
            accent: pad.accent
            lit: InputBindings.listening && InputBindings.listeningId === row.id
            faint: text === ""

            TapHandler {
                onTapped: InputBindings.listen(parent.row.id)
            }
        }
    }
}
