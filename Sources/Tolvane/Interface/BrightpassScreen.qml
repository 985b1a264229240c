import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// The screen of the one-pass check.
Item {
    id: screen

    required property BrightpassViewModel controller
    readonly property bool isResult: controller.shownStage === Ui.Result

    Component.onCompleted: controller.appeared()
    onVisibleChanged: if (visible) controller.appeared()

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        ScreenToolbar {
            Layout.fillWidth: true
            title: qsTr("Brightpass")
            path: ""

            IconButton {
                objectName: "scanAgain"
                visible: screen.isResult
                iconName: "view-refresh"
                text: qsTr("Check again")
                shortcutText: "Ctrl+R"
                onClicked: screen.controller.run()
            }
            PlainButton {
                objectName: "chooseDuplicatesFolder"
                visible: screen.isResult
                iconName: "document-open-folder"
                text: qsTr("Folder for duplicates...")
                onClicked: screen.controller.chooseDuplicatesRoot()
            }
        }
        ScreenBanner {
            objectName: "banner"
            text: screen.controller.banner
            onDismissed: screen.controller.dismissBanner()
        }
        ScreenBanner {
            objectName: "partialBanner"
            kind: Banner.Warning
            text: screen.isResult && screen.controller.isPartial ? qsTr("The check was cancelled: this is only what had been measured until then.") : ""
            actionText: qsTr("Check again")
            isDismissible: false
            onActionTriggered: screen.controller.run()
        }
        StackLayout {
            currentIndex: screen.controller.shownStage

            BrightpassStart {
                controller: screen.controller
            }
            BrightpassProgress {
                controller: screen.controller
            }
            BrightpassResult {
                controller: screen.controller
            }
        }
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
        isActive: screen.visible && !failures.opened
        isResult: screen.isResult
        isRunning: screen.controller.activity.isRunning
        canUndo: false
        onChooseRequested: screen.controller.chooseDuplicatesRoot()
        onScanRequested: screen.controller.run()
        onCancelRequested: screen.controller.cancelActivity()
    }
}
