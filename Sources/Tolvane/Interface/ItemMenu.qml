import QtQuick
import Tolvane
import Tolvane.Components

/// What can be done to one item.
ContextMenu {
    id: menu

    required property ScanViewModel controller
    property string nodeID

    function openFor(nodeID: string, parent: Item, x: real, y: real): void {
        menu.nodeID = nodeID;
        controller.inspect(nodeID);
        popup(parent, x, y);
    }

    objectName: "itemMenu"

    ContextMenuItem {
        iconName: "go-next"
        text: qsTr("Open")
        shortcutText: qsTr("Return")
        onTriggered: menu.controller.open(menu.nodeID)
    }
    ContextMenuItem {
        iconName: "object-select"
        text: qsTr("Tick or untick")
        shortcutText: qsTr("Space")
        onTriggered: menu.controller.select(menu.nodeID, true)
    }
    ContextMenuSeparator {}
    ContextMenuItem {
        iconName: "folder-open"
        text: qsTr("Show in file manager")
        onTriggered: menu.controller.reveal(menu.nodeID)
    }
    ContextMenuItem {
        iconName: "edit-copy"
        text: qsTr("Copy path")
        onTriggered: menu.controller.copyPath(menu.nodeID)
    }
}
