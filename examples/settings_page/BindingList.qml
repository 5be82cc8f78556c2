import QtQuick
import QtQuick.Controls.Basic
import Velmora

// Rows of buttons, one of which the keyboard is on: Return binds it and Delete clears it.
ListView {
    id: list

    required property var rows // maps of "id", "name" and "binding"
    required property color accent

    function bind(index: int) {
        currentIndex = index;
        forceActiveFocus();
        InputBindings.listen(rows[index].id);
    }
    function clear(index: int) {
        currentIndex = index;
        forceActiveFocus();
        InputBindings.cancelListen();
        InputBindings.clearButton(rows[index].id);
    }

    // The number of the rows and not the rows: so a new binding changes a row's text, and the rows
    // themselves stay, with the place of the keyboard and of the scroll bar.
    model: rows.length
    clip: true
    spacing: 4
    activeFocusOnTab: true
    boundsBehavior: Flickable.StopAtBounds
    highlightMoveDuration: 0
    ScrollBar.vertical: ScrollBar {}

    Keys.onReturnPressed: bind(currentIndex)
    Keys.onEnterPressed: bind(currentIndex)
    Keys.onSpacePressed: bind(currentIndex)
    Keys.onDeletePressed: clear(currentIndex)

    delegate: BindingRow {
        required property int index

        // While a shorter list takes a longer one's place there are rows without an entry.
        readonly property var entry: list.rows[index] ?? { id: -1, name: "", binding: "" }

        width: list.width
        height: Theme.rowHeight
        buttonId: entry.id
        name: entry.name
        binding: entry.binding
        accent: list.accent
        selected: ListView.isCurrentItem && list.activeFocus
        onClicked: list.bind(index)
        onCleared: list.clear(index)
    }
}
