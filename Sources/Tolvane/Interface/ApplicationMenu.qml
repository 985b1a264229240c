import QtQuick
import Tolvane
import Tolvane.Components

/// What can be done with one application.
ContextMenu {
    id: menu

    required property UninstallerViewModel controller
    property string appID

    function openFor(id: string, parent: Item, x: real, y: real): void {
        appID = id;
        popup(parent, x, y);
    }

    objectName: "applicationMenu"

    ContextMenuItem {
        objectName: "menuUninstall"
        iconName: "user-trash"
        text: qsTr("Uninstall...")
        shortcutText: qsTr("Delete")
        isDestructive: true
        // The menu is that of the row, and opening it has made the row the current one.
        enabled: menu.appID === menu.controller.detail.appID && menu.controller.detail.removableText !== ""
        onTriggered: menu.controller.prepareReview()
    }
    ContextMenuSeparator {}
    ContextMenuItem {
        objectName: "menuReveal"
        iconName: "folder-open"
        text: qsTr("Show in file manager")
        onTriggered: menu.controller.revealApp(menu.appID)
    }
    ContextMenuItem {
        objectName: "menuCopyPath"
        iconName: "edit-copy"
        text: qsTr("Copy path")
        onTriggered: menu.controller.copyAppPath(menu.appID)
    }
}
