import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// The processes that listen on TCP ports.
Item {
    id: screen

    required property PortsViewModel controller
    readonly property bool isQuestionOpen: killQuestion.opened || killAllQuestion.opened

    function focusContent(): void {
        table.focusRows();
    }

    Binding {
        target: screen.controller
        property: "isShown"
        value: screen.visible
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        PortsToolbar {
            id: toolbar

            Layout.fillWidth: true
            controller: screen.controller
            onFilterLeft: screen.focusContent()
        }
        ScreenBanner {
            objectName: "banner"
            kind: screen.controller.hasResult ? Banner.Information : Banner.Warning
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
        PortsTable {
            id: table

            Layout.fillWidth: true
            Layout.fillHeight: true
            controller: screen.controller
        }
        PortsFooter {
            Layout.fillWidth: true
            controller: screen.controller
        }
    }

    KillQuestion {
        id: killQuestion

        isShown: screen.controller.pendingKillText !== ""
        title: qsTr("Kill process?")
        text: screen.controller.pendingKillText
        killText: qsTr("Kill (SIGTERM)")
        forceText: qsTr("Force Kill (SIGKILL)")
        onDismissed: screen.controller.dismissKill()
        isBusy: screen.controller.isSignalling
        onChosen: force => screen.controller.killPending(force)
    }
    KillQuestion {
        id: killAllQuestion

        isShown: screen.controller.confirmKillAll
        title: qsTr("Kill all listening processes?")
        text: screen.controller.killAllText
        killText: qsTr("Kill All (SIGTERM)")
        forceText: qsTr("Force Kill All (SIGKILL)")
        onDismissed: screen.controller.dismissKillAll()
        isBusy: screen.controller.isSignalling
        onChosen: force => screen.controller.killAllAsked(force)
    }

    ScreenShortcuts {
        isActive: screen.visible && !screen.isQuestionOpen
        isResult: true
        isRunning: screen.controller.waitingText !== ""
        canUndo: false
        onScanRequested: screen.controller.refresh()
        onCancelRequested: screen.controller.stopWaiting()
        onFilterRequested: toolbar.focusFilter()
    }
}
