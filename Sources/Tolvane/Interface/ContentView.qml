import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// The screen of the size map.
Item {
    id: view

    required property ScanViewModel controller
    readonly property bool isResult: controller.stage === Ui.Result
    readonly property bool isSheetOpen: review.opened || failures.opened || purgeable.opened

    function focusContent(): void {
        if (isResult) {
            result.focusItems();
        }
    }

    Connections {
        target: view.controller

        function onStageChanged(): void {
            view.focusContent();
        }
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        ContentToolbar {
            id: toolbar

            Layout.fillWidth: true
            controller: view.controller
            onFilterLeft: view.focusContent()
        }
        ContentBanners {
            Layout.fillWidth: true
            controller: view.controller
        }
        StackLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            currentIndex: view.controller.stage

            StartPage {
                iconName: "space-analysis"
                title: qsTr("See what fills your disk")
                text: qsTr("Choose a folder or drop one here. Its largest folders and files are shown, and what you do not need can be moved to the Trash.")
                actionText: qsTr("Choose folder...")
                note: qsTr("Scanning only reads names and sizes; it changes nothing.")
                places: view.controller.quickPlaces
                lastPath: view.controller.lastScanPath
                onActionTriggered: view.controller.chooseFolder()
                onPlaceChosen: row => view.controller.scanQuickPlace(row)
                onLastChosen: view.controller.scanLast()
            }
            WorkingPage {
                activity: view.controller.activity
                onCancelRequested: view.controller.cancelActivity()
            }
            ResultPage {
                id: result

                controller: view.controller
            }
        }
    }

    FolderDrop {
        anchors.fill: parent
        enabled: !view.isSheetOpen
        text: qsTr("Drop a folder to see what fills it")
        onFoldersDropped: urls => view.controller.scanDropped(urls)
    }

    ReviewSheet {
        id: review

        removal: view.controller.removal
        trouble: view.controller.banner
        onRemoveRequested: view.controller.removeReviewed()
    }
    FailureSheet {
        id: failures

        title: view.controller.failuresText
        folders: view.controller.failureFolders
        isShown: view.controller.showFailures
        access: view.controller.access
        onDismissed: view.controller.closeFailures()
    }
    PurgeableSheet {
        id: purgeable

        controller: view.controller
    }

    ScreenShortcuts {
        id: keys

        isActive: view.visible && !view.isSheetOpen
        isResult: view.isResult
        isRunning: view.controller.activity.isRunning
        canUndo: view.controller.removal.canUndo
        onChooseRequested: view.controller.chooseFolder()
        onScanRequested: view.controller.scanAgain()
        onCancelRequested: view.controller.cancelActivity()
        onFilterRequested: toolbar.focusFilter()
        onUndoRequested: view.controller.undoRemoval()
    }
    Shortcut {
        enabled: keys.isActive && keys.isResult
        sequences: ["Alt+Left"]
        onActivated: view.controller.goBack()
    }
}
