import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// The machine's memory, processes, disk and what can be done for it.
Item {
    id: screen

    required property PerformanceViewModel controller

    Binding {
        target: screen.controller
        property: "isShown"
        value: screen.visible
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        ScreenToolbar {
            Layout.fillWidth: true
            title: qsTr("Performance")
            path: qsTr("Memory, processes and disk of this machine, refreshing every 3 s")

            IconButton {
                objectName: "refresh"
                iconName: "view-refresh"
                text: qsTr("Refresh")
                shortcutText: "Ctrl+R"
                onClicked: screen.controller.refreshAll()
            }
        }
        ScreenBanner {
            objectName: "banner"
            text: screen.controller.banner
            onDismissed: screen.controller.dismissBanner()
        }
        ScreenBanner {
            objectName: "waitingBanner"
            text: screen.controller.waitingText
            kind: Banner.Warning
            isDismissible: false
            actionText: qsTr("Stop waiting")
            onActionTriggered: screen.controller.stopWaiting()
        }
        ScrollPage {
            id: page

            objectName: "performancePage"
            Layout.fillWidth: true
            Layout.fillHeight: true
            contentHeight: panels.implicitHeight + Theme.pageMargin

            GridLayout {
                id: panels

                readonly property bool isWide: width >= 840

                x: Theme.pageMargin
                width: page.width - 2 * Theme.pageMargin
                columns: isWide ? 2 : 1
                columnSpacing: Theme.wideSpacing
                rowSpacing: Theme.wideSpacing

                MemoryPanel {
                    Layout.columnSpan: panels.columns
                    controller: screen.controller
                }
                ProcessTable {
                    Layout.preferredWidth: 580
                    Layout.fillHeight: true
                    Layout.rowSpan: panels.isWide ? 2 : 1
                    controller: screen.controller
                }
                VolumePanel {
                    Layout.preferredWidth: 352
                    controller: screen.controller
                }
                SnapshotPanel {
                    Layout.preferredWidth: 352
                    Layout.fillHeight: panels.isWide
                    controller: screen.controller
                }
                StartupList {
                    Layout.columnSpan: panels.columns
                    controller: screen.controller
                }
                MaintenanceRows {
                    Layout.columnSpan: panels.columns
                    controller: screen.controller
                }
            }
        }
    }

    ConfirmDialog {
        id: quitQuestion

        isShown: screen.controller.pendingQuitText !== ""
        title: qsTr("Quit process?")
        text: screen.controller.pendingQuitText
        confirmText: qsTr("Quit")
        isDestructive: true
        onDismissed: screen.controller.dismissQuit()
        onConfirmed: screen.controller.quitPending()
    }

    ScreenShortcuts {
        isActive: screen.visible && !quitQuestion.opened
        isResult: true
        isRunning: screen.controller.isBusy || screen.controller.waitingText !== ""
        canUndo: false
        onScanRequested: screen.controller.refreshAll()
        onCancelRequested: screen.controller.cancelActivity()
    }
}
