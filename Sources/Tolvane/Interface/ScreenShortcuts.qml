import QtQuick

/// The keys that all screens share and that work wherever the focus is.
Item {
    id: shortcuts

    /// Whether the screen is to be seen and nothing lies over it.
    required property bool isActive
    required property bool isResult
    required property bool isRunning
    required property bool canUndo

    signal chooseRequested()
    signal scanRequested()
    signal cancelRequested()
    signal filterRequested()
    signal undoRequested()

    Shortcut {
        enabled: shortcuts.isActive
        sequences: ["Ctrl+O"]
        onActivated: shortcuts.chooseRequested()
    }
    Shortcut {
        enabled: shortcuts.isActive && shortcuts.isResult
        sequences: ["Ctrl+R", "F5"]
        onActivated: shortcuts.scanRequested()
    }
    Shortcut {
        enabled: shortcuts.isActive && shortcuts.isRunning
        sequences: ["Esc"]
        onActivated: shortcuts.cancelRequested()
    }
    Shortcut {
        enabled: shortcuts.isActive && shortcuts.isResult
        sequences: ["Ctrl+F"]
        onActivated: shortcuts.filterRequested()
    }
    Shortcut {
        enabled: shortcuts.isActive && shortcuts.canUndo
        sequences: ["Ctrl+Z"]
        onActivated: shortcuts.undoRequested()
    }
}
