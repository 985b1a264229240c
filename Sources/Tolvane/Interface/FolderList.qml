import QtQuick
import Tolvane
import Tolvane.Components

/// The folder's items as a table.
Item {
    id: view

    required property ScanViewModel controller
    /// While it is not, it costs nothing.
    required property bool isShown

    function focusItems(): void {
        table.focus = true;
    }

    function idAt(row: int): string {
        return controller.folder.nodeIDAt(row);
    }

    DataTable {
        id: table

        anchors.fill: parent
        model: view.isShown ? view.controller.folder : null
        sortKey: view.controller.folder.sortKey
        isDescending: view.controller.folder.isDescending
        accessibleName: qsTr("Items")
        onSortRequested: key => view.controller.folder.sortBy(key)
        onRowClicked: (row, modifiers) => {
            view.controller.select(view.idAt(row), modifiers & Qt.ControlModifier);
            view.controller.inspect(view.idAt(row));
        }
        onRowActivated: row => view.controller.open(view.idAt(row))
        onRowToggled: row => view.controller.select(view.idAt(row), true)
        onContextMenuRequested: (row, x, y) => menu.openFor(view.idAt(row), table, x, y)
        onCurrentIndexChanged: if (hasKeyboard && currentIndex >= 0) view.controller.inspect(view.idAt(currentIndex))

        DataColumn {
            title: qsTr("Name")
            fills: true
            minimumWidth: 160
            sortKey: Ui.Name
            delegate: NameCell {}
        }
        DataColumn {
            title: qsTr("Share")
            width: 120
            minimumWidth: 90
            delegate: ShareCell {}
        }
        DataColumn {
            title: qsTr("Size")
            role: "sizeText"
            width: 92
            isFigure: true
            sortKey: Ui.Size
        }
        DataColumn {
            title: qsTr("Items")
            role: "itemCountText"
            width: 88
            isFigure: true
            sortKey: Ui.Items
        }
        DataColumn {
            title: qsTr("Modified")
            role: "modifiedText"
            width: 108
            sortKey: Ui.Modified
        }
    }
    ItemMenu {
        id: menu

        controller: view.controller
    }
}
