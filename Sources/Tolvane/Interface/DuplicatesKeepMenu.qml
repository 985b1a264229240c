import QtQuick
import Tolvane
import Tolvane.Components

/// What can be done with all groups.
ContextMenu {
    id: menu

    required property DuplicatesViewModel controller

    objectName: "keepMenu"
    width: 272

    ContextMenuItem {
        objectName: "keepNewestOfAll"
        iconName: "pan-up"
        text: qsTr("Keep the newest of each group")
        onTriggered: menu.controller.keepNewestOfAll()
    }
    ContextMenuItem {
        objectName: "keepOldestOfAll"
        iconName: "pan-down"
        text: qsTr("Keep the oldest of each group")
        onTriggered: menu.controller.keepOldestOfAll()
    }
    ContextMenuItem {
        objectName: "clearAll"
        iconName: "window-close"
        text: qsTr("Clear all")
        onTriggered: menu.controller.clearTicks()
    }
    ContextMenuSeparator {}
    ContextMenuItem {
        objectName: "collapseAll"
        iconName: "go-next"
        text: qsTr("Close all groups")
        onTriggered: menu.controller.rows.collapseAll()
    }
    ContextMenuItem {
        objectName: "expandAll"
        iconName: "pan-down"
        text: qsTr("Open all groups")
        onTriggered: menu.controller.rows.expandAll()
    }
}
