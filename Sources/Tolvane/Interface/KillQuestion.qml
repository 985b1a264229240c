import QtQuick
import Tolvane.Components

/// Asks before processes are signalled, and how.
Sheet {
    id: question

    required property string killText
    required property string forceText
    /// While other signals are sent.
    required property bool isBusy

    signal chosen(force: bool)

    preferredWidth: 520
    defaultButton: cancel
    buttons: [
        PlainButton {
            id: cancel

            objectName: "killCancel"
            text: qsTr("Cancel")
            onClicked: question.dismissed()
        },
        DestructiveButton {
            objectName: "killForce"
            enabled: !question.isBusy
            text: question.forceText
            onClicked: question.chosen(true)
        },
        DestructiveButton {
            objectName: "killTerminate"
            enabled: !question.isBusy
            text: question.killText
            onClicked: question.chosen(false)
        }
    ]
}
