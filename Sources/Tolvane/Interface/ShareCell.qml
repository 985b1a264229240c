import QtQuick
import Tolvane.Components

/// An item's share of its folder, as a bar and as a figure.
DataCell {
    id: cell

    SizeBar {
        anchors.left: parent.left
        anchors.leftMargin: 10
        anchors.right: figure.left
        anchors.rightMargin: Theme.spacing
        anchors.verticalCenter: parent.verticalCenter
        share: cell.row ? cell.row.share : 0
    }
    FigureLabel {
        id: figure

        anchors.right: parent.right
        anchors.rightMargin: 10
        width: 46
        height: parent.height
        text: cell.row ? cell.row.shareText : ""
        color: Theme.secondaryText
        font.pixelSize: Theme.smallText
        Accessible.ignored: true
    }
}
