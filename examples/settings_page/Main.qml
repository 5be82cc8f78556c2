import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Velmora

// The whole page is one edit: what was done is kept with OK, and undone however else the page closes.
ApplicationWindow {
    id: page

    readonly property var systems: InputBindings.systems
    readonly property var system: systems.find(entry => entry.id === InputBindings.systemId)
    readonly property color accent: system ? system.accent : Theme.accent
    property bool accepted: false

    // Each read of a list reads the store, so the lists are read here, once for each change.
    readonly property var buttonRows: InputBindings.buttons
    readonly property var specialRows: InputBindings.specials

    function accept() {
        accepted = true;
        close();
    }

    width: 1040
    height: 760
    minimumWidth: 760
    minimumHeight: 480
    visible: true
    title: qsTr("Controls")
    color: Theme.background

    Component.onCompleted: {
        InputBindings.prepare();
        InputBindings.beginEdit();
    }
    onClosing: accepted ? InputBindings.commitEdit() : InputBindings.revertEdit()
    // A pad may have come while another window was in front.
    onActiveChanged: if (active)
        InputBindings.prepare()

    // A shortcut goes before the key press that a capture waits for, so it has to stand back then.
    // Without repetition, or the Escape that ends a capture would close the page while it is held.
    Shortcut {
        sequence: "Escape"
        autoRepeat: false
        enabled: !InputBindings.listening
        onActivated: page.close()
    }
    Shortcut {
        sequences: ["Ctrl+Return", "Ctrl+Enter"]
        autoRepeat: false
        enabled: !InputBindings.listening
        onActivated: page.accept()
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: Theme.gap
        spacing: Theme.gap

        PageHeader {
            title: page.system ? page.system.label : InputBindings.systemId
            accent: page.accent
            Layout.fillWidth: true
            Layout.preferredHeight: Theme.headerHeight
        }

        RowLayout {
            spacing: Theme.gap

            Panel {
                title: qsTr("Systems")
                Layout.preferredWidth: Math.min(290, page.width * 0.28)
                Layout.fillHeight: true

                SystemList {
                    anchors.fill: parent
                    systems: page.systems
                    KeyNavigation.right: buttonList
                }
            }
            Panel {
                title: qsTr("Buttons")
                Layout.fillWidth: true
                Layout.fillHeight: true
                Layout.preferredWidth: 1

                BindingList {
                    id: buttonList
                    anchors.fill: parent
                    rows: page.buttonRows
                    accent: page.accent
                    focus: true
                    KeyNavigation.right: specialList
                }
            }
            ColumnLayout {
                spacing: Theme.gap
                Layout.preferredWidth: 1

                PadPicture {
                    rows: page.buttonRows
                    accent: page.accent
                    Layout.fillWidth: true
                    Layout.preferredHeight: Math.min(166, page.height / 4)
                }
                Panel {
                    title: qsTr("Special actions, for all systems")
                    Layout.fillWidth: true
                    Layout.fillHeight: true

                    BindingList {
                        id: specialList
                        anchors.fill: parent
                        rows: page.specialRows
                        accent: page.accent
                    }
                }
            }
        }

        StackLayout {
            currentIndex: InputBindings.listening ? 1 : 0
            Layout.fillHeight: false
            Layout.preferredHeight: Theme.footerHeight

            PageFooter {
                accent: page.accent
                onAccepted: page.accept()
                onRejected: page.close()
            }
            CaptureBar {
                accent: page.accent
            }
        }
    }
}
