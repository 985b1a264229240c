import QtQuick

/// A column's role as text.
DataCell {
    id: cell

    ElidedLabel {
        anchors.fill: parent
        anchors.leftMargin: 10
        anchors.rightMargin: 10
        text: cell.row && cell.column ? cell.row[cell.column.role] ?? "" : ""
        color: cell.column?.isFigure ? Theme.text : Theme.secondaryText
        font.family: cell.column?.isFigure ? Theme.figureFamily : Theme.family
        horizontalAlignment: cell.column?.isFigure ? Text.AlignRight : Text.AlignLeft
        Accessible.ignored: true
    }
}
