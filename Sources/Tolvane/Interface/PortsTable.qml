import QtQuick
import Tolvane
import Tolvane.Components

/// The listeners; they come and go while rows that stay keep their place, selection and menu.
Item {
    id: view

    required property PortsViewModel controller

    function focusRows(): void {
        table.forceActiveFocus(Qt.OtherFocusReason);
    }

    Connections {
        target: view.controller

        function onRowsUpdated(): void {
            table.currentIndex = view.controller.rowOf(view.controller.selectedID);
        }
    }

    DataTable {
        id: table

        anchors.fill: parent
        // The rows stand within it, beside the scroll bar.
        anchors.leftMargin: Theme.pageMargin - 4
        anchors.rightMargin: Theme.pageMargin - 14
        visible: view.controller.rows.count > 0
        model: view.controller.rows
        sortKey: view.controller.sortKey
        isDescending: view.controller.isDescending
        accessibleName: qsTr("Listeners")
        onSortRequested: key => view.controller.sortBy(key)
        onRowActivated: row => view.controller.askToKill(view.controller.idAt(row))
        onContextMenuRequested: (row, x, y) => menu.openFor(row, table, x, y)
        onCurrentIndexChanged: view.controller.select(view.controller.idAt(currentIndex))
        Keys.onDeletePressed: view.controller.askToKill(view.controller.selectedID)

        DataColumn {
            title: qsTr("Port")
            role: "portText"
            width: 72
            isFigure: true
            sortKey: Ui.Port
        }
        DataColumn {
            title: qsTr("Process")
            role: "processText"
            width: 140
            minimumWidth: 96
            sortKey: Ui.Process
        }
        DataColumn {
            title: qsTr("PID")
            role: "pidText"
            width: 68
            isFigure: true
            sortKey: Ui.Pid
        }
        DataColumn {
            title: qsTr("Addresses")
            width: table.width > 800 ? 240 : 200
            minimumWidth: 120
            delegate: AddressesCell {}
        }
        DataColumn {
            title: qsTr("Executable")
            role: "executableText"
            fills: true
            minimumWidth: 110
        }
    }
    EmptyState {
        objectName: "emptyState"
        anchors.fill: parent
        visible: !table.visible && !busy.visible
        iconName: "network"
        title: view.controller.emptyText
        actionText: view.controller.hasResult ? "" : qsTr("Try again")
        onActionTriggered: view.controller.refresh()
        note: view.controller.hasResult ? qsTr("Looked at all TCP sockets in the LISTEN state that you may see.") : ""
    }
    FractionBar {
        id: busy

        anchors.centerIn: parent
        width: 240
        visible: !view.controller.hasResult && view.controller.isScanning
        fraction: -1
    }
    PortMenu {
        id: menu

        controller: view.controller
    }
}
