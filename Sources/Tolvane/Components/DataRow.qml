import QtQuick

/// A line of a DataTable; reused for another row while scrolling.
MouseArea {
    id: area

    required property int index
    required property var model
    /// The DataTable; untyped, because types that name each other do not load.
    readonly property var table: ListView.view?.parent ?? null
    readonly property bool isCurrent: ListView.isCurrentItem
    readonly property bool isMarked: table !== null && table.selectedRole !== "" && model[table.selectedRole]

    readonly property Component textCell: TextCell {}

    objectName: "row" + index
    width: table?.contentWidth ?? 0
    height: Theme.rowHeight
    hoverEnabled: true
    acceptedButtons: Qt.LeftButton | Qt.RightButton
    Accessible.role: Accessible.Row
    Accessible.name: table ? model[table.accessibleRole] ?? "" : ""
    Accessible.selectable: true
    Accessible.selected: isCurrent
    Accessible.focusable: true
    Accessible.onPressAction: table.rowActivated(index)
    onPressed: table.take(index)
    onClicked: mouse => mouse.button === Qt.RightButton ? table.askForMenu(index, area, mouse.x, mouse.y)
                                                        : table.rowClicked(index, mouse.modifiers)
    onDoubleClicked: mouse => {
        if (mouse.button === Qt.LeftButton) {
            table.rowActivated(index);
        }
    }

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: 4
        anchors.rightMargin: 4
        radius: Theme.smallRadius
        color: area.isCurrent || area.isMarked ? Theme.accentSoft : area.containsMouse ? Theme.hover : "transparent"
        border.width: area.isCurrent && area.table?.hasKeyboard ? 2 : 0
        border.color: Theme.focusRing
    }

    Row {
        anchors.fill: parent

        Repeater {
            model: area.table?.columns ?? []

            delegate: Loader {
                id: place

                required property DataColumn modelData
                readonly property DataRow line: (parent?.parent ?? null) as DataRow

                width: line?.table?.widthOf(modelData) ?? 0
                height: Theme.rowHeight
                sourceComponent: modelData.delegate ?? line?.textCell ?? null
                onLoaded: {
                    const cell = item as DataCell;
                    cell.column = modelData;
                    cell.row = line.model;
                    cell.rowIndex = Qt.binding(() => place.line?.index ?? -1);
                }
            }
        }
    }
}
