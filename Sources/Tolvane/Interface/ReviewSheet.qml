import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// Asks before the ticked items move to the Trash.
Sheet {
    id: sheet

    required property Removal removal
    /// What the last try ended with; empty when there was none.
    required property string trouble

    signal removeRequested()

    objectName: "reviewSheet"
    title: qsTr("Move %1 to the Trash?").arg(removal.countText)
    preferredWidth: 620
    note: removal.isChecking ? qsTr("Checking the items...") : qsTr("Total: %1").arg(removal.totalText)
    defaultButton: cancel
    isShown: removal.showReview
    onDismissed: removal.closeReview()

    Banner {
        objectName: "reviewError"
        Layout.fillWidth: true
        kind: Banner.Warning
        text: sheet.trouble
        isDismissible: false
    }
    Banner {
        objectName: "reviewTrouble"
        Layout.fillWidth: true
        kind: Banner.Warning
        text: sheet.removal.troubledCount > 0 ? qsTr("Nothing is moved while an item is in the way of the others.") : ""
        actionText: qsTr("Leave out the marked items")
        isDismissible: false
        onActionTriggered: sheet.removal.leaveOutTroubled()
    }
    Banner {
        objectName: "reviewWarning"
        Layout.fillWidth: true
        kind: Banner.Warning
        text: sheet.removal.warningText
        isDismissible: false
    }
    SheetRows {
        objectName: "reviewRows"
        model: sheet.removal.rows
        rowHeight: 44
        rowDelegate: ReviewSheetRow {}
        accessibleName: sheet.title
        onRowToggled: row => sheet.removal.leaveOut(row)
        Keys.onDeletePressed: sheet.removal.leaveOut(currentIndex)
    }
    PlainLabel {
        objectName: "reviewNote"
        Layout.fillWidth: true
        text: qsTr("Items move to Trash and can be restored with Undo.") + "\n" + qsTr("Space is freed when the Trash is emptied.")
        color: Theme.secondaryText
        font.pixelSize: Theme.smallText
        wrapMode: Text.Wrap
    }

    buttons: [
        PlainButton {
            id: cancel

            objectName: "reviewCancel"
            enabled: !sheet.removal.isRemoving
            text: qsTr("Cancel")
            onClicked: sheet.removal.closeReview()
        },
        DestructiveButton {
            objectName: "reviewRemove"
            // Nobody agrees to what they have not been warned of yet.
            enabled: !sheet.removal.isRemoving && !sheet.removal.isChecking
            text: sheet.removal.isRemoving ? qsTr("Moving...") : qsTr("Move to Trash")
            onClicked: sheet.removeRequested()
        }
    ]
}
