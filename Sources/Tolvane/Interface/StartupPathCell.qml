import QtQuick
import Tolvane.Components

/// The file that starts it.
DataCell {
    id: cell

    ElidedLabel {
        anchors.fill: parent
        anchors.leftMargin: 10
        anchors.rightMargin: 10
        text: cell.row ? cell.row.pathText : ""
        color: Theme.secondaryText
        elide: Text.ElideMiddle
        Accessible.ignored: true
    }
}
