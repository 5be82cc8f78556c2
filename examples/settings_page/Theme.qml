pragma Singleton

import QtQuick

// Every colour and size that more than one file uses.
QtObject {
    readonly property color background: "#12141a"
    readonly property color panel: "#1b1e27"
    readonly property color row: "#242834"
    readonly property color rowHovered: "#2d3241"
    readonly property color edge: "#3a4052"
    readonly property color text: "#eceff5"
    readonly property color dimText: "#98a1b3"
    readonly property color accent: "#6ea8fe"

    readonly property int gap: 12
    readonly property int radius: 10
    readonly property int rowHeight: 34
    readonly property int headerHeight: 56
    readonly property int footerHeight: 44
    readonly property int titleHeight: 40

    // Black or white, whichever is read better on a surface of this colour.
    function inkOn(surface: color): color {
        const brightness = 0.299 * surface.r + 0.587 * surface.g + 0.114 * surface.b;
        return brightness > 0.55 ? "#14161c" : "#ffffff";
    }

    // The colour, light enough to be read on the dark panels.
    function legible(tint: color): color {
        return Qt.hsla(tint.hslHue, tint.hslSaturation, Math.max(tint.hslLightness, 0.62), 1);
    }
}
