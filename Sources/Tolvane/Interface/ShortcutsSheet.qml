import QtQuick
import QtQuick.Layouts
import Tolvane.Components

/// The keys, by what they do.
Sheet {
    id: sheet

    readonly property var shortcuts: [
        { keys: "Ctrl+1 to Ctrl+6", text: qsTr("Show a module") },
        { keys: "Ctrl+O", text: qsTr("Choose a folder") },
        { keys: "Ctrl+R, F5", text: qsTr("Scan again, or refresh") },
        { keys: "Esc", text: qsTr("Cancel, or close a sheet") },
        { keys: "Ctrl+F", text: qsTr("Filter") },
        { keys: "Return", text: qsTr("Open the item, or close a group") },
        { keys: "Backspace, Alt+Left", text: qsTr("Go back") },
        { keys: "Space", text: qsTr("Tick the item") },
        { keys: "Ctrl+A", text: qsTr("Tick all items, or all copies") },
        { keys: "Left, Right", text: qsTr("Close and open a group of duplicates") },
        { keys: "Menu, Shift+F10", text: qsTr("Show what can be done with the item") },
        { keys: "Delete", text: qsTr("Review what is ticked or chosen, or kill a process") },
        { keys: "Ctrl+Z", text: qsTr("Undo the last removal") },
        { keys: "Ctrl+,", text: qsTr("Settings") },
        { keys: "Ctrl+Q", text: qsTr("Quit") },
        { keys: "F1", text: qsTr("Show this") }
    ]

    objectName: "shortcutsSheet"
    title: qsTr("Shortcuts")
    preferredWidth: 480
    defaultButton: close

    // The lines draw together where the window is low.
    ColumnLayout {
        spacing: 0

        Repeater {
            model: sheet.shortcuts

            RowLayout {
                id: row

                required property var modelData

                Layout.preferredHeight: 28

                PlainLabel {
                    Layout.fillWidth: true
                    text: row.modelData.text
                }
                PlainLabel {
                    text: row.modelData.keys
                    color: Theme.secondaryText
                }
            }
        }
    }

    buttons: [
        PrimaryButton {
            id: close

            objectName: "shortcutsClose"
            text: qsTr("Close")
            onClicked: sheet.dismissed()
        }
    ]
}
