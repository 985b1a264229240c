import QtQuick
import Tolvane.Components

/// What starts by itself; its program on pointing at it.
DataCell {
    id: cell

    ElidedLabel {
        anchors.fill: parent
        anchors.leftMargin: 10
        anchors.rightMargin: 10
        text: cell.row ? cell.row.labelText : ""
        fullText: cell.row && cell.row.programText !== "" ? cell.row.programText : text
        color: cell.row && cell.row.isAtOnce ? Theme.text : Theme.secondaryText
        Accessible.ignored: true
    }
}
