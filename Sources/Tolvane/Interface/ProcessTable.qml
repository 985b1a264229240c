import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// The processes that take the most memory; rows that stay keep their selection and menu.
PerformancePanel {
    id: panel

    required property PerformanceViewModel controller
    readonly property int shownRows: 8

    title: qsTr("Heavy processes")
    summary: qsTr("By memory; CPU is the average since the start")

    Connections {
        target: panel.controller

        function onProcessesUpdated(): void {
            table.currentIndex = panel.controller.rowOf(panel.controller.selectedID);
        }
    }

    Item {
        Layout.fillWidth: true
        implicitHeight: 30 + 8 + panel.shownRows * Theme.rowHeight

        DataTable {
            id: table

            objectName: "processes"
            anchors.fill: parent
            // The rows stand within it, beside the scroll bar.
            anchors.leftMargin: -10
            anchors.rightMargin: -10
            visible: panel.controller.processRows.count > 0
            model: panel.controller.processRows
            accessibleName: panel.title
            onRowActivated: row => panel.controller.askToQuit(panel.controller.processAt(row))
            onContextMenuRequested: (row, x, y) => menu.openFor(row, table, x, y)
            onCurrentIndexChanged: panel.controller.select(panel.controller.processAt(currentIndex))
            Keys.onDeletePressed: panel.controller.askToQuit(panel.controller.selectedID)

            DataColumn {
                title: qsTr("Process")
                fills: true
                minimumWidth: 110
                delegate: ProcessNameCell {}
            }
            DataColumn {
                title: qsTr("PID")
                role: "pidText"
                width: 76
                isFigure: true
            }
            DataColumn {
                title: qsTr("Memory")
                width: 170
                minimumWidth: 130
                isFigure: true
                delegate: ProcessMemoryCell {}
            }
            DataColumn {
                title: qsTr("CPU")
                role: "cpuText"
                width: 80
                isFigure: true
            }
            DataColumn {
                width: 52
                minimumWidth: 52
                delegate: ProcessQuitCell {}
            }
        }
        PlainLabel {
            objectName: "noProcesses"
            anchors.centerIn: parent
            visible: !table.visible && panel.controller.knowsProcesses
            text: qsTr("The processes could not be listed")
            color: Theme.secondaryText
        }
        FractionBar {
            anchors.centerIn: parent
            visible: !table.visible && !panel.controller.knowsProcesses
            fraction: -1
        }
    }
    ProcessMenu {
        id: menu

        controller: panel.controller
    }
}
