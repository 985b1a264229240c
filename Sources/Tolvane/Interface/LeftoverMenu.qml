import QtQuick
import Tolvane
import Tolvane.Components

/// What can be done with one leftover alone.
ContextMenu {
    id: menu

    required property UninstallerViewModel controller
    property int row: -1

    function openFor(row: int, parent: Item, x: real, y: real): void {
        menu.row = row;
        popup(parent, x, y);
    }

    objectName: "leftoverMenu"

    ContextMenuItem {
        objectName: "menuReveal"
        iconName: "folder-open"
        text: qsTr("Show in file manager")
        shortcutText: qsTr("Return")
        onTriggered: menu.controller.revealLeftover(menu.row)
    }
    ContextMenuItem {
        objectName: "menuCopyPath"
        iconName: "edit-copy"
        text: qsTr("Copy path")
        onTriggered: menu.controller.copyLeftoverPath(menu.row)
    }
}
