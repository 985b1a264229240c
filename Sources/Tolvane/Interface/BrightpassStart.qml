import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// What the check is for, before the first one.
Item {
    id: page

    required property BrightpassViewModel controller

    EmptyState {
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Theme.pageMargin, 704)
        iconName: "sparkles"
        title: qsTr("See what could be reclaimed")
        text: qsTr("One pass over caches, logs and the Trash, over what applications leave behind, and over files that you have twice.")
        actionText: qsTr("Check now")
        note: qsTr("The check only measures: it moves and changes nothing.")
        onActionTriggered: page.controller.run()

        RowLayout {
            spacing: Theme.spacing

            PlainLabel {
                text: qsTr("Duplicates are looked for in")
                color: Theme.secondaryText
            }
            ElidedLabel {
                objectName: "duplicatesPath"
                Layout.maximumWidth: 220
                text: page.controller.duplicatesPath
                elide: Text.ElideMiddle
            }
            PlainButton {
                objectName: "chooseDuplicatesFolderFirst"
                iconName: "document-open-folder"
                text: qsTr("Change...")
                onClicked: page.controller.chooseDuplicatesRoot()
            }
        }
    }
}
