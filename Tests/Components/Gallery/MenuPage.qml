import QtQuick
import Tolvane.Components

Ground {
    height: 320

    IconButton { id: button; iconName: "view-more"; text: "More about a button" }
    PlainToolTip { id: tip; parent: button; delay: 0; text: "/home/anna/.local/share/containers/storage/overlay/0123456789abcdef0123456789abcdef/diff" }

    Timer { running: true; interval: 1; onTriggered: { menu.open(); menu.currentIndex = 1; tip.visible = true; } }
    ContextMenu {
        id: menu

        x: 300
        y: 24

        ContextMenuItem { text: "Open"; iconName: "folder-open"; shortcutText: "Return" }
        ContextMenuItem { text: "Show in files"; iconName: "document-open-folder" }
        ContextMenuItem { text: "Copy path"; iconName: "edit-copy"; shortcutText: "Ctrl+C"; enabled: false }
        ContextMenuSeparator {}
        ContextMenuItem { text: "Review removal…"; iconName: "user-trash"; isDestructive: true; shortcutText: "Delete" }
    }
}
