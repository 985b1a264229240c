import QtQuick
import Tolvane

/// The keys of the size map that work wherever the focus is.
Item {
    id: shortcuts

    required property ScanViewModel controller
    required property bool isActive
    readonly property bool isResult: isActive && controller.stage === Ui.Result

    signal filterRequested()

    Shortcut {
        enabled: shortcuts.isActive
        sequences: ["Ctrl+O"]
        onActivated: shortcuts.controller.chooseFolder()
    }
    Shortcut {
        enabled: shortcuts.isResult
        sequences: ["Ctrl+R", "F5"]
        onActivated: shortcuts.controller.scanAgain()
    }
    Shortcut {
        enabled: shortcuts.isActive && shortcuts.controller.activity.isRunning
        sequences: ["Esc"]
        onActivated: shortcuts.controller.cancelActivity()
    }
    Shortcut {
        enabled: shortcuts.isResult
        sequences: ["Ctrl+F"]
        onActivated: shortcuts.filterRequested()
    }
    Shortcut {
        enabled: shortcuts.isActive && shortcuts.controller.removal.canUndo
        sequences: ["Ctrl+Z"]
        onActivated: shortcuts.controller.undoRemoval()
    }
    Shortcut {
        enabled: shortcuts.isResult
        sequences: ["Alt+Left"]
        onActivated: shortcuts.controller.goBack()
    }
}
