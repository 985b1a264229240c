import QtQuick
import Tolvane
import Tolvane.Components

/// What can be done to one listener; stays about it while the table changes.
ContextMenu {
    id: menu

    required property PortsViewModel controller
    property string portID
    property bool hasExecutable: false

    function openFor(row: int, parent: Item, x: real, y: real): void {
        portID = controller.idAt(row);
        hasExecutable = controller.hasExecutable(portID);
        popup(parent, x, y);
    }

    objectName: "portMenu"

    ContextMenuItem {
        iconName: "process-stop"
        text: qsTr("Kill (SIGTERM)")
        shortcutText: qsTr("Delete")
        isDestructive: true
        onTriggered: menu.controller.askToKill(menu.portID)
    }
    ContextMenuItem {
        iconName: "process-stop"
        text: qsTr("Force Kill (SIGKILL)")
        isDestructive: true
        enabled: !menu.controller.isSignalling
        onTriggered: menu.controller.forceKill(menu.portID)
    }
    ContextMenuItem {
        iconName: "process-stop"
        text: qsTr("Kill Process Tree")
        isDestructive: true
        enabled: !menu.controller.isSignalling
        onTriggered: menu.controller.killTree(menu.portID)
    }
    ContextMenuSeparator {}
    ContextMenuItem {
        iconName: "edit-copy"
        text: qsTr("Copy Port")
        onTriggered: menu.controller.copyPort(menu.portID)
    }
    ContextMenuItem {
        iconName: "folder-open"
        text: qsTr("Reveal Executable")
        visible: menu.hasExecutable
        onTriggered: menu.controller.reveal(menu.portID)
    }
}
