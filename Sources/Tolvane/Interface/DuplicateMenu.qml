import QtQuick
import Tolvane
import Tolvane.Components

/// What can be done with one file and its group, or with a group.
ContextMenu {
    id: menu

    required property DuplicatesViewModel controller
    property int row: -1
    property bool isHeader: false

    function openFor(row: int, isHeader: bool, parent: Item, x: real, y: real): void {
        menu.row = row;
        menu.isHeader = isHeader;
        popup(parent, x, y);
    }

    objectName: "duplicateMenu"
    width: 288

    ContextMenuItem {
        objectName: "menuOpen"
        visible: !menu.isHeader
        iconName: "text-x-generic"
        text: qsTr("Open")
        shortcutText: qsTr("Return")
        onTriggered: menu.controller.open(menu.row)
    }
    ContextMenuItem {
        objectName: "menuReveal"
        visible: !menu.isHeader
        iconName: "folder-open"
        text: qsTr("Show in file manager")
        onTriggered: menu.controller.reveal(menu.row)
    }
    ContextMenuItem {
        objectName: "menuCopyPath"
        visible: !menu.isHeader
        iconName: "edit-copy"
        text: qsTr("Copy path")
        onTriggered: menu.controller.copyPath(menu.row)
    }
    ContextMenuSeparator {
        visible: !menu.isHeader
    }
    ContextMenuItem {
        objectName: "menuKeepOnly"
        visible: !menu.isHeader
        iconName: "emblem-ok"
        text: qsTr("Keep only this one")
        onTriggered: menu.controller.keepOnly(menu.row)
    }
    ContextMenuItem {
        objectName: "menuKeepFolder"
        visible: !menu.isHeader
        iconName: "folder"
        text: qsTr("Keep what lies in this folder")
        onTriggered: menu.controller.keepFolder(menu.row)
    }
    ContextMenuItem {
        objectName: "menuSelectCopies"
        iconName: "object-select"
        text: qsTr("Select the copies of this group")
        onTriggered: menu.controller.selectCopiesAt(menu.row)
    }
    ContextMenuItem {
        objectName: "menuKeepNewest"
        iconName: "pan-up"
        text: qsTr("Keep the newest of this group")
        onTriggered: menu.controller.keepNewest(menu.row)
    }
    ContextMenuItem {
        objectName: "menuKeepOldest"
        iconName: "pan-down"
        text: qsTr("Keep the oldest of this group")
        onTriggered: menu.controller.keepOldest(menu.row)
    }
    ContextMenuItem {
        objectName: "menuClear"
        iconName: "window-close"
        text: qsTr("Clear this group")
        onTriggered: menu.controller.clearTicksAt(menu.row)
    }
}
