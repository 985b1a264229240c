import QtQuick
import Tolvane.Components

/// Tick, drawing and name of an item.
DataCell {
    id: cell

    /// Where the table has put this.
    readonly property var place: parent

    TriStateBox {
        id: box

        objectName: "tick"
        x: 6
        anchors.verticalCenter: parent.verticalCenter
        focusPolicy: Qt.NoFocus
        mark: cell.row ? cell.row.tick : TriStateBox.None
        text: cell.row ? cell.row.name : ""
        onClicked: cell.place.line.table.rowToggled(cell.rowIndex)
    }
    Icon {
        id: icon

        anchors.left: box.right
        anchors.leftMargin: Theme.spacing
        anchors.verticalCenter: parent.verticalCenter
        name: cell.row ? cell.row.iconName : ""
        color: Theme.secondaryText
        size: 18
    }
    ElidedLabel {
        anchors.left: icon.right
        anchors.leftMargin: Theme.spacing
        anchors.right: purgeable.visible ? purgeable.left : parent.right
        anchors.rightMargin: Theme.spacing
        height: parent.height
        text: cell.row ? cell.row.name : ""
        fullText: cell.row ? cell.row.pathText : ""
        elide: Text.ElideMiddle
        Accessible.ignored: true
    }
    Icon {
        id: purgeable

        anchors.right: parent.right
        anchors.rightMargin: Theme.spacing
        anchors.verticalCenter: parent.verticalCenter
        visible: cell.row ? cell.row.isPurgeable : false
        name: "purgeable"
        color: Theme.secondaryText
        size: 16
    }
}
