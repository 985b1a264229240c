import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// The screen of the duplicate finder.
Item {
    id: screen

    required property DuplicatesViewModel controller
    readonly property bool isResult: controller.stage === Ui.Result
    readonly property bool isSheetOpen: review.opened || failures.opened

    Component.onCompleted: controller.appeared()
    onVisibleChanged: if (visible) controller.appeared()

    Connections {
        target: screen.controller

        function onStageChanged(): void {
            if (screen.isResult) {
                result.focusRows();
            }
        }
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        DuplicatesToolbar {
            id: toolbar

            Layout.fillWidth: true
            controller: screen.controller
            onFilterLeft: result.focusRows()
        }
        ScreenBanner {
            objectName: "banner"
            text: screen.controller.banner
            actionText: screen.controller.removal.canUndo ? qsTr("Undo") : ""
            onActionTriggered: screen.controller.undo()
            onDismissed: screen.controller.dismissBanner()
        }
        ScreenBanner {
            objectName: "partialBanner"
            kind: Banner.Warning
            text: screen.isResult && screen.controller.isPartial ? qsTr("The scan was cancelled: this is only what had been compared until then.") : ""
            actionText: qsTr("Scan again")
            isDismissible: false
            onActionTriggered: screen.controller.scan()
        }
        ScreenBanner {
            objectName: "lockedBanner"
            text: screen.isResult ? screen.controller.lockedText : ""
            isDismissible: false
        }
        StackLayout {
            currentIndex: screen.controller.stage

            StartPage {
                iconName: "duplicates"
                title: qsTr("Find what you have twice")
                text: qsTr("Files of the same content are put side by side, wherever they lie. You choose which copies move to the Trash.")
                actionText: screen.controller.isRootOffered ? qsTr("Scan %1").arg(screen.controller.rootName) : qsTr("Choose folder...")
                note: qsTr("Only files of equal size are opened, to compare their contents; scanning changes nothing. Hidden files and what lies in packages are left out.")
                places: screen.controller.quickPlaces
                settings: MinimumSizeField {
                    controller: screen.controller
                    onConfirmed: if (screen.controller.isRootOffered) screen.controller.scan()
                }
                onActionTriggered: screen.controller.isRootOffered ? screen.controller.scan() : screen.controller.chooseRoot()
                onPlaceChosen: row => screen.controller.scanQuickPlace(row)
            }
            WorkingPage {
                activity: screen.controller.activity
                onCancelRequested: screen.controller.cancelActivity()
            }
            DuplicatesResult {
                id: result

                controller: screen.controller
            }
        }
    }

    FolderDrop {
        anchors.fill: parent
        enabled: !screen.isSheetOpen
        text: qsTr("Drop a folder to find what is in it twice")
        onFoldersDropped: urls => screen.controller.scanDropped(urls)
    }

    ReviewSheet {
        id: review

        removal: screen.controller.removal
        trouble: screen.controller.banner
        onRemoveRequested: screen.controller.removeReviewed()
    }
    FailureSheet {
        id: failures

        title: screen.controller.failuresText
        folders: screen.controller.failureFolders
        isShown: screen.controller.showFailures
        access: screen.controller.access
        onDismissed: screen.controller.closeFailures()
    }

    ScreenShortcuts {
        isActive: screen.visible && !screen.isSheetOpen
        isResult: screen.isResult
        isRunning: screen.controller.activity.isRunning
        canUndo: screen.controller.removal.canUndo
        onChooseRequested: screen.controller.chooseRoot()
        onScanRequested: screen.controller.scan()
        onCancelRequested: screen.controller.cancelActivity()
        onFilterRequested: toolbar.focusFilter()
        onUndoRequested: screen.controller.undo()
    }
}
