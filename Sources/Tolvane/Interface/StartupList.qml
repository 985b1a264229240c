import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// What starts by itself, that at log-in and at boot first.
PerformancePanel {
    id: panel

    required property PerformanceViewModel controller
    readonly property int mostRows: 8

    title: qsTr("Start-up items")
    summary: controller.knowsAgents ? controller.agentsText : qsTr("Looking for them")
    actions: PlainButton {
        objectName: "loginItems"
        iconName: "preferences-system"
        text: qsTr("Log-in settings...")
        onClicked: panel.controller.openLoginItemsSettings()
    }

    DataTable {
        objectName: "startupItems"
        Layout.fillWidth: true
        // The rows stand within it, beside the scroll bar.
        Layout.leftMargin: -10
        Layout.rightMargin: -10
        implicitHeight: 30 + 8 + Math.min(panel.mostRows, count) * rowHeight
        visible: count > 0
        currentIndex: -1
        model: panel.controller.agentRows
        accessibleName: panel.title
        onRowActivated: row => panel.controller.revealAgent(row)

        DataColumn {
            title: qsTr("Item")
            width: 190
            minimumWidth: 100
            delegate: StartupNameCell {}
        }
        DataColumn {
            title: qsTr("Starts")
            role: "startText"
            width: 112
        }
        DataColumn {
            title: qsTr("For")
            role: "scopeText"
            width: 104
        }
        DataColumn {
            title: qsTr("File")
            fills: true
            minimumWidth: 120
            delegate: StartupPathCell {}
        }
    }
}
