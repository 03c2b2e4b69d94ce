// SPDX-License-Identifier: MIT
pragma Singleton
import QtQuick

// Every colour, type size, radius and spacing of the program.
QtObject {
    id: root

    // As the desktop wants it; the window sets it.
    property bool isDark: false
    property bool isStill: false
    readonly property ThemeColors colors: root.isDark ? root.dark : root.light

    readonly property ThemeColors light: ThemeColors {
        window: "#f6f4f1"
        sidebar: "#ebe7e1"
        content: "#fffefc"
        separator: "#d9d3ca"
        shade: "#66201a14"

        text: "#2a2622"
        secondaryText: "#5f5850"
        disabledText: "#a29a90"

        selectedContent: "#a8431a"
        selectedText: "#ffffff"
        accent: "#a8431a"
        accentHovered: "#9b3c16"
        accentPressed: "#863311"
        accentText: "#ffffff"
        danger: "#a61b1b"
        focus: "#1f5fbf"

        button: "#fffefc"
        buttonHovered: "#f6f3ef"
        buttonPressed: "#e6e0d8"
        buttonBorder: "#c9c1b6"
        fieldBorder: "#857d72"
        rowHovered: "#fcfbf9"
        menuHighlight: "#ebe7e1"
        scrollBar: "#b3aaa0"
        scrollBarPressed: "#857d72"
        track: "#e3ddd4"
        selectedTrack: "#c98a6c"
    }

    readonly property ThemeColors dark: ThemeColors {
        window: "#36312b"
        sidebar: "#1f1c19"
        content: "#292521"
        separator: "#46403a"
        shade: "#99000000"

        text: "#f2ede7"
        secondaryText: "#c2b9ae"
        disabledText: "#857c72"

        selectedContent: "#a8431a"
        selectedText: "#ffffff"
        accent: "#b5481c"
        accentHovered: "#c0501f"
        accentPressed: "#9b3c16"
        accentText: "#ffffff"
        danger: "#ff9d8f"
        focus: "#7db1ff"

        button: "#3a352f"
        buttonHovered: "#453f38"
        buttonPressed: "#2f2b26"
        buttonBorder: "#5c554c"
        fieldBorder: "#8d8478"
        rowHovered: "#3d3731"
        menuHighlight: "#3f3932"
        scrollBar: "#6b635a"
        scrollBarPressed: "#8d8478"
        track: "#4d463f"
        selectedTrack: "#c98a6c"
    }

    // Points. The desktop's own text size is the body; it is not known where a size in pixels is set.
    readonly property real bodySize: Math.max(9, Application.font.pointSize)
    readonly property real displaySize: root.bodySize * 2.8
    readonly property real titleSize: root.bodySize * 1.9
    readonly property real title2Size: root.bodySize * 1.5
    readonly property real title3Size: root.bodySize * 1.2

    // What holds texts is as wide as it is drawn here where the desktop's text is of the usual size.
    readonly property real usualBodySize: 11
    readonly property real textScale: Math.max(1, root.bodySize / root.usualBodySize)

    // Milliseconds.
    readonly property int motionDuration: 150
    readonly property int toolTipDelay: 700

    readonly property string fixedFamily: "monospace"

    readonly property int tightSpacing: 4
    readonly property int spacing: 8
    readonly property int wideSpacing: 16
    readonly property int pageMargin: 28
    readonly property int radius: 8
    readonly property int controlRadius: 6
    readonly property int focusWidth: 2
    readonly property int symbolSize: 16
    readonly property int largeSymbolSize: 28
    readonly property int progressHeight: 4
    readonly property int controlHeight: 32
    readonly property int sidebarWidth: 300 * root.textScale
    readonly property int sidebarMinimumWidth: 200 * root.textScale
    readonly property int paneMinimumWidth: 220 * root.textScale
    readonly property int sheetWidth: 440 * root.textScale
    readonly property int backupsWidth: 560 * root.textScale
    readonly property int backupsHeight: 190
    readonly property int changesHeight: 52 * root.textScale
    readonly property int wideSheetWidth: 760 * root.textScale
    readonly property int pageWidth: 640 * root.textScale
    readonly property int lengthFieldWidth: 130 * root.textScale
    readonly property int chartWidth: 360 * root.textScale
    readonly property int chartTextsWidth: 30 * root.bodySize
    readonly property int chartHeight: 64
    readonly property int historyNumberWidth: 8.5 * root.bodySize
    readonly property int smallChartHeight: 36
    readonly property int menuWidth: 240 * root.textScale
    readonly property int toolTipWidth: 400 * root.textScale
    readonly property int editorMaximumHeight: 200
    readonly property int noteEditorHeight: 100
    // Each line of a text takes its time, and a name may be a megabyte.
    readonly property int nameMaximumLineCount: 100
    readonly property int toolTipMaximumLineCount: 10
}
