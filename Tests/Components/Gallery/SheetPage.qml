import QtQuick
import QtQuick.Layouts
import Tolvane.Components

Ground {
    height: 520

    PlainLabel { text: "What lies behind the sheet" }
    Sheet {
        isShown: true
        title: "Move 3 items to the Trash?"
        text: "Items move to Trash and can be restored with Undo."
        note: "3 items, 1.2 GB"
        preferredWidth: 520
        initialFocus: cancel
        buttons: [
            PlainButton { id: cancel; text: "Cancel" },
            DestructiveButton { text: "Move to Trash" }
        ]

        Repeater {
            model: ["Downloads", "a name <i>with</i> markup.iso", "node_modules"]
            RowLayout {
                required property string modelData
                Icon { name: "folder"; color: Theme.secondaryText }
                ElidedLabel { Layout.fillWidth: true; text: parent.modelData }
                FigureLabel { text: "411.1 MB" }
            }
        }
    }
}
