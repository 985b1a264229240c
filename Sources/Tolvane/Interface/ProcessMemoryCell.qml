import QtQuick
import Tolvane.Components

/// How much of the memory a process takes.
DataCell {
    id: cell

    SizeBar {
        anchors.left: parent.left
        anchors.leftMargin: 10
        anchors.right: figure.left
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        share: cell.row ? cell.row.share : 0
    }
    FigureLabel {
        id: figure

        anchors.right: parent.right
        anchors.rightMargin: 10
        width: 78
        height: parent.height
        text: cell.row ? cell.row.sizeText : ""
        Accessible.ignored: true
    }
}
