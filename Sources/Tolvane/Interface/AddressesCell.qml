import QtQuick
import Tolvane.Components

/// Where a process listens, marked when other machines reach it there.
DataCell {
    id: cell

    readonly property bool isReachable: cell.row ? cell.row.isReachable : false

    Icon {
        id: mark

        x: 10
        anchors.verticalCenter: parent.verticalCenter
        visible: cell.isReachable
        name: "network"
        color: Theme.warningText
        size: 16

        HoverHandler {
            id: pointer
        }
        LazyToolTip {
            isWanted: pointer.hovered
            text: qsTr("Reachable from the network: it listens on all addresses")
        }
    }
    ElidedLabel {
        anchors.fill: parent
        anchors.leftMargin: 32
        anchors.rightMargin: 10
        text: cell.row ? cell.row.addressesText : ""
        color: cell.isReachable ? Theme.text : Theme.secondaryText
        font.family: Theme.figureFamily
        Accessible.ignored: true
    }
}
