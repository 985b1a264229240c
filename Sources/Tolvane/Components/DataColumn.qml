import QtQuick

/// One column of a DataTable.
QtObject {
    property string title
    /// The text the cell shows where `delegate` is left alone.
    property string role
    /// Changed by the handle in the header.
    property real width: 120
    property real minimumWidth: 56
    /// Takes what the others leave; one column of a table.
    property bool fills: false
    /// Right-aligned, in figures of one width.
    property bool isFigure: false
    /// What `sortRequested` carries; negative: not sortable.
    property int sortKey: -1
    /// A DataCell; it must be cheap, every row on screen has one. Null: the text of `role`.
    property Component delegate: null
}
