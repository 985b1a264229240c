import QtQuick
import Tolvane.Components

/// Asks for the end of a process; the keyboard does that by Delete on its row.
DataCell {
    id: cell

    /// Where the table has put this.
    readonly property var place: parent

    IconButton {
        objectName: "quit" + cell.rowIndex
        anchors.centerIn: parent
        focusPolicy: Qt.NoFocus
        iconName: "process-stop"
        ink: hovered ? Theme.dangerText : Theme.secondaryText
        text: cell.row ? qsTr("Quit %1...").arg(cell.row.nameText) : ""
        onClicked: cell.place.line.table.rowActivated(cell.rowIndex)
    }
}
