import QtQuick

/// What a column's delegate derives from; the table fills in all of it.
Item {
    /// The roles of the row, by name: `row.sizeText`. Null for a moment at the start.
    property var row: null
    property int rowIndex: -1
    property DataColumn column: null
}
