import QtQuick
import QtQuick.Dialogs
import Tolvane

/// The dialog in which a person chooses a folder.
FolderDialog {
    required property FolderChooser chooser

    title: chooser.title
    currentFolder: chooser.start
    onAccepted: chooser.accept(selectedFolder)
    onRejected: chooser.reject()
    Component.onCompleted: open()
}
