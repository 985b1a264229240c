import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// The screen of the uninstaller.
Item {
    id: screen

    required property UninstallerViewModel controller
    readonly property bool isResult: controller.stage === Ui.Result

    Component.onCompleted: controller.appeared()
    onVisibleChanged: if (visible) controller.appeared()

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        ScreenToolbar {
            Layout.fillWidth: true
            title: qsTr("Uninstaller")
            path: screen.controller.countText

            IconButton {
                objectName: "scanAgain"
                visible: screen.isResult
                enabled: !screen.controller.isLoading && !screen.controller.isWorking
                iconName: "view-refresh"
                text: qsTr("Look again")
                shortcutText: "Ctrl+R"
                onClicked: screen.controller.refresh()
            }
        }
        ScreenBanner {
            objectName: "banner"
            text: screen.controller.banner
            actionText: screen.controller.removal.canUndo ? qsTr("Undo") : ""
            onActionTriggered: screen.controller.undo()
            onDismissed: screen.controller.dismissBanner()
        }
        StackLayout {
            currentIndex: screen.controller.stage

            EmptyState {
                objectName: "uninstallerStart"
                iconName: "applications"
                title: qsTr("Remove applications with all they leave")
                text: qsTr("Applications in your own folders are listed with what they keep elsewhere: settings, caches, data. You see all of it before anything moves to the Trash.")
                actionText: qsTr("List applications")
                note: screen.controller.leftOutText
                onActionTriggered: screen.controller.load()
            }
            WorkingPage {
                activity: screen.controller.activity
                onCancelRequested: screen.controller.stopLoading()
            }
            RowLayout {
                spacing: 0

                ApplicationList {
                    id: list

                    Layout.fillHeight: true
                    Layout.preferredWidth: Math.max(250, Math.min(screen.width * 0.36, 360))
                    controller: screen.controller
                }
                ApplicationDetail {
                    Layout.fillWidth: true
                    Layout.fillHeight: true
                    Layout.leftMargin: Theme.wideSpacing
                    Layout.rightMargin: Theme.pageMargin
                    Layout.bottomMargin: Theme.wideSpacing
                    controller: screen.controller
                }
            }
        }
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
        isActive: screen.visible && !review.opened && !failures.opened
        isResult: screen.isResult
        isRunning: screen.controller.activity.isRunning
        canUndo: screen.controller.removal.canUndo
        onScanRequested: screen.controller.refresh()
        onCancelRequested: screen.controller.stopLoading()
        onFilterRequested: list.focusFilter()
        onUndoRequested: screen.controller.undo()
    }
}
