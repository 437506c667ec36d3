// Colours and sizes. The contrast of text and background is at least 4.5 to 1.
pragma Singleton

import QtQuick

QtObject {
    readonly property bool dark: profile.dark

    readonly property color background: dark ? "#111214" : "#ffffff"
    readonly property color listBackground: dark ? "#111214" : "#f1f2f5"
    readonly property color group: dark ? "#1f2124" : "#ffffff"
    readonly property color pressed: dark ? "#34373c" : "#dfe2e8"
    readonly property color line: dark ? "#35383d" : "#d9dbe0"
    readonly property color bar: dark ? "#1a1c1f" : "#f8f9fa"
    readonly property color text: dark ? "#f2f3f5" : "#15171a"
    readonly property color quietText: dark ? "#a8adb5" : "#5b616a"
    readonly property color disabledText: dark ? "#7d828a" : "#73787f"
    readonly property color tint: dark ? "#6cb0ff" : "#0b5cd6"
    readonly property color tintText: dark ? "#0c1a2b" : "#ffffff"
    readonly property color track: dark ? "#3a3e44" : "#d3d7de"
    readonly property color scrim: dark ? "#99000000" : "#80000000"
    readonly property color danger: dark ? "#ff8a80" : "#b3261e"

    // In the order: problem, worth a look, plain, good, unknown.
    readonly property var markColors: dark
        ? ["#ff8a80", "#ffc766", "#a8adb5", "#7fd48b", "#79c8d8"]
        : ["#b3261e", "#8a5a00", "#5b616a", "#1c6b2a", "#0e6475"]
    readonly property var markSigns: ["✗", "!", "·", "✓", "?"]

    readonly property int radius: 12
    readonly property int animation: 220  // ms
}
