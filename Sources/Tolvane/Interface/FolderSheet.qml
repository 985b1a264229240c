import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// Lets a person choose a folder.
Sheet {
    id: sheet

    required property FolderChooser chooser

    function choose(): void {
        chooser.accept(path.text);
    }

    objectName: "folderSheet"
    title: chooser.title
    preferredWidth: 760
    initialFocus: folders
    defaultButton: chooseButton
    isShown: chooser.isOpen
    onDismissed: chooser.reject()

    Connections {
        target: sheet.chooser

        function onChosenPathChanged(): void {
            path.text = sheet.chooser.chosenPath;
        }
    }

    RowLayout {
        spacing: Theme.halfSpacing

        IconButton {
            objectName: "folderUp"
            enabled: sheet.chooser.canGoUp
            iconName: "go-up"
            text: qsTr("Up")
            shortcutText: qsTr("Backspace")
            onClicked: sheet.chooser.goUp()
        }
        PathBar {
            objectName: "folderCrumbs"
            Layout.fillWidth: true
            model: sheet.chooser.crumbs
            onActivated: index => sheet.chooser.openCrumb(index)
        }
    }
    RowLayout {
        Layout.preferredHeight: 340
        Layout.fillHeight: true
        spacing: Theme.spacing

        FolderSheetPlaces {
            Layout.preferredWidth: 176
            Layout.fillHeight: true
            chooser: sheet.chooser
        }
        FolderSheetRows {
            id: folders

            Layout.fillWidth: true
            Layout.fillHeight: true
            chooser: sheet.chooser
            onConfirmed: sheet.choose()
        }
    }
    RowLayout {
        spacing: Theme.wideSpacing

        LineField {
            id: path

            objectName: "folderPath"
            Layout.fillWidth: true
            text: sheet.chooser.chosenPath
            placeholderText: qsTr("Path")
            Keys.onReturnPressed: text === sheet.chooser.chosenPath ? sheet.choose() : sheet.chooser.goTo(text)
            Keys.onEnterPressed: text === sheet.chooser.chosenPath ? sheet.choose() : sheet.chooser.goTo(text)
        }
        TickLine {
            objectName: "folderHidden"
            isTicked: sheet.chooser.showsHidden
            text: qsTr("Hidden folders")
            onClicked: sheet.chooser.setShowsHidden(!sheet.chooser.showsHidden)
        }
    }
    PlainLabel {
        objectName: "folderTrouble"
        Layout.fillWidth: true
        // Keeps its line while there is no trouble.
        Layout.preferredHeight: 18
        text: sheet.chooser.trouble
        color: Theme.warningText
        font.pixelSize: Theme.smallText
    }

    buttons: [
        PlainButton {
            objectName: "folderCancel"
            text: qsTr("Cancel")
            onClicked: sheet.chooser.reject()
        },
        PrimaryButton {
            id: chooseButton

            objectName: "folderChoose"
            text: qsTr("Scan")
            onClicked: sheet.choose()
        }
    ]
}
