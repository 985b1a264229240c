import QtQuick

/// A line of a DataTable that has a cell for each column.
TableRow {
    id: area

    readonly property Component textCell: TextCell {}

    Row {
        anchors.fill: parent

        Repeater {
            model: area.table?.columns ?? []

            delegate: Loader {
                id: place

                required property DataColumn modelData
                readonly property DataRow line: (parent?.parent ?? null) as DataRow

                width: line?.table?.widthOf(modelData) ?? 0
                height: line?.height ?? 0
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
