pragma Singleton

import QtQuick

QtObject {
    /// Set by the application from the desktop's appearance.
    property bool isDark: false
    property bool reducesMotion: false

    readonly property color window: isDark ? "#1f2126" : "#f6f7f9"
}
