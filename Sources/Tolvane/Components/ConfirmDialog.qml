import QtQuick

/// One question. `confirmed` and `dismissed` only tell; the owner clears `isShown`.
Sheet {
    id: dialog

    required property string confirmText
    property string cancelText: qsTr("Cancel")
    /// Then Return cancels and the confirming button is red.
    property bool isDestructive: false

    signal confirmed()

    preferredWidth: 440
    defaultButton: isDestructive ? cancel : confirm
    buttons: [
        PlainButton {
            id: cancel

            objectName: "dialogCancel"
            text: dialog.cancelText
            onClicked: dialog.dismissed()
        },
        PrimaryButton {
            id: confirm

            objectName: "dialogConfirm"
            visible: !dialog.isDestructive
            text: dialog.confirmText
            onClicked: dialog.confirmed()
        },
        DestructiveButton {
            objectName: "dialogDestroy"
            visible: dialog.isDestructive
            text: dialog.confirmText
            onClicked: dialog.confirmed()
        }
    ]
}
