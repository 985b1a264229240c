import QtQuick
import Tolvane.Components

/// What a process is called; its program on pointing at it.
DataCell {
    id: cell

    ElidedLabel {
        anchors.fill: parent
        anchors.leftMargin: 10
        anchors.rightMargin: 10
        text: cell.row ? cell.row.nameText : ""
        fullText: cell.row ? cell.row.fullName : ""
        Accessible.ignored: true
    }
}
