import QtQuick
import Tolvane
import Tolvane.Components

/// What can be done to one process; stays about it while the table changes.
ContextMenu {
    id: menu

    required property PerformanceViewModel controller
    property string processID

    function openFor(row: int, parent: Item, x: real, y: real): void {
        processID = controller.processAt(row);
        popup(parent, x, y);
    }

    objectName: "processMenu"

    ContextMenuItem {
        iconName: "process-stop"
        text: qsTr("Quit...")
        shortcutText: qsTr("Delete")
        isDestructive: true
        onTriggered: menu.controller.askToQuit(menu.processID)
    }
    ContextMenuSeparator {}
    ContextMenuItem {
        iconName: "edit-copy"
        text: qsTr("Copy PID")
        onTriggered: menu.controller.copyPID(menu.processID)
    }
}
