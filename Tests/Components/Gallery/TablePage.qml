import QtQuick
import Tolvane.Components

Ground {
    PathBar {
        width: parent.width
        model: ListModel {
            ListElement { name: "Home"; pathText: "/home/anna" }
            ListElement { name: "Projects"; pathText: "/home/anna/Projects" }
            ListElement { name: "<b>tolvane</b>"; pathText: "/home/anna/Projects/<b>tolvane</b>" }
        }
    }
    PathBar {
        id: narrow

        width: 420
        model: ListModel {
            ListElement { name: "File System"; pathText: "/" }
            ListElement { name: "home"; pathText: "/home" }
            ListElement { name: "anna"; pathText: "/home/anna" }
            ListElement { name: "Projects"; pathText: "/home/anna/Projects" }
            ListElement { name: "a rather long name of a folder that nobody expected here"; pathText: "/x" }
            ListElement { name: "node_modules"; pathText: "/y" }
        }
    }
    Rectangle {
        width: parent.width
        height: 360
        radius: Theme.cardRadius
        color: Theme.surface
        border.color: Theme.line

        Timer { running: true; interval: 50; onTriggered: { table.forceActiveFocus(Qt.TabFocusReason); table.showRow(2); } }
        DataTable {
            id: table

            anchors.fill: parent
            anchors.margins: 1
            sortKey: 1
            isDescending: true
            accessibleRole: "name"
            selectedRole: "isMarked"
            model: ListModel {
                id: rows

                Component.onCompleted: {
                    for (let i = 0; i < 60; ++i) {
                        append({isMarked: i === 6, name: i === 3 ? "<b>bold</b> & a very long name of a file that is elided.tar.gz" : "Folder " + i,
                                iconName: i % 4 ? "text-x-generic" : "folder", tick: i % 4, share: 1 / (i + 1), sizeText: (1111 / (i + 1)).toFixed(1) + " MB",
                                itemsText: i % 4 ? "" : (4711 * i).toString(), modifiedText: "2024-03-11"});
                    }
                }
            }
            DataColumn {
                title: "Name"
                sortKey: 0
                fills: true
                minimumWidth: 160
                delegate: DataCell {
                    id: cell

                    Row {
                        x: 6
                        spacing: 6
                        TriStateBox { anchors.verticalCenter: parent.verticalCenter; mark: cell.row?.tick ?? 0 }
                        Icon { anchors.verticalCenter: parent.verticalCenter; name: cell.row?.iconName ?? ""; color: Theme.secondaryText; size: 18 }
                        ElidedLabel { width: cell.width - 72; height: cell.height; text: cell.row?.name ?? "" }
                    }
                }
            }
            DataColumn {
                title: "Share"
                width: 110
                delegate: DataCell {
                    id: shareCell

                    SizeBar { anchors.verticalCenter: parent.verticalCenter; x: 10; width: parent.width - 20; share: shareCell.row?.share ?? 0 }
                }
            }
            DataColumn { title: "Size"; role: "sizeText"; sortKey: 1; isFigure: true; width: 100 }
            DataColumn { title: "Items"; role: "itemsText"; sortKey: 2; isFigure: true; width: 90 }
            DataColumn { title: "Modified"; role: "modifiedText"; sortKey: 3; width: 110 }
        }
    }
}
