import QtQuick
import Tolvane
import Tolvane.Components

/// The groups of equal files, each with its files.
Item {
    id: view

    required property DuplicatesViewModel controller
    readonly property DuplicatesModel rows: controller.rows

    /// The keyboard is theirs once it is this screen's.
    function focusRows(): void {
        table.focus = true;
    }

    /// As in a tree: Left closes a group or leads to its header, Right opens it or leads on.
    function turn(isOpening: bool): void {
        const row = table.currentIndex;
        const target = isOpening ? rows.headerBelow(row) : rows.headerAbove(row);
        if (rows.isHeaderAt(row) && rows.isCollapsedAt(row) === isOpening) {
            rows.toggleCollapsed(row);
        } else if (target >= 0) {
            table.showRow(target);
        }
    }

    Keys.onLeftPressed: turn(false)
    Keys.onRightPressed: turn(true)

    DataTable {
        id: table

        objectName: "duplicateRows"
        anchors.fill: parent
        // The rows stand within it, beside the scroll bar.
        anchors.leftMargin: Theme.pageMargin - 4
        anchors.rightMargin: Theme.pageMargin - 14
        model: view.rows
        rowHeight: 36
        rowDelegate: DuplicateRow {}
        accessibleName: qsTr("Duplicates")
        onRowActivated: row => view.rows.isHeaderAt(row) ? view.rows.toggleCollapsed(row) : view.controller.open(row)
        onRowToggled: row => view.controller.toggleRow(row)
        onContextMenuRequested: (row, x, y) => menu.openFor(row, view.rows.isHeaderAt(row), table, x, y)
    }
    DuplicateMenu {
        id: menu

        controller: view.controller
    }
}
