import QtQuick
import Tolvane.Components

Ground {
    Grid {
        columns: 10
        spacing: 12
        Repeater {
            model: ["space-analysis", "user-trash", "duplicates", "network", "speedometer", "sparkles", "folder",
                "folder-open", "folder-download", "folder-library", "document-open-folder", "text-x-generic",
                "emblem-symbolic-link", "unknown", "drive-harddisk", "user-home", "applications", "view-grid",
                "view-list", "view-more", "go-previous", "go-next", "go-up", "view-refresh", "process-stop",
                "edit-undo", "edit-copy", "edit-find", "dialog-warning", "dialog-information", "changes-prevent",
                "security-high", "emblem-ok", "object-select", "window-close", "pan-down", "pan-up",
                "help-contents", "preferences-system", "purgeable", "document-open-recent", "list-add",
                "input-keyboard"]
            Row {
                required property string modelData
                spacing: 6
                Icon { name: parent.modelData; size: 16; anchors.verticalCenter: parent.verticalCenter }
                Icon { name: parent.modelData; size: 32; color: Theme.accentText }
            }
        }
    }
    Row {
        spacing: 8
        Repeater {
            model: Theme.categories
            Rectangle {
                required property color modelData
                width: 80
                height: 56
                radius: 6
                color: modelData
                PlainLabel { anchors.centerIn: parent; text: "Photos"; color: Theme.categoryText }
            }
        }
    }
}
