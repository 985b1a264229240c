import QtQuick
import Tolvane
import Tolvane.Components

/// The map of a folder's items; says their names and sizes when they are pointed at.
Item {
    id: view

    required property ScanViewModel controller

    TreemapItem {
        id: map

        objectName: "treemap"
        anchors.fill: parent
        controller: view.controller
        cellColors: Theme.categories
        labelColor: Theme.categoryText
        highlightColor: Theme.text
        labelPixelSize: Theme.smallText
        Accessible.role: Accessible.Graphic
        Accessible.name: qsTr("Map of the folder's items")
        Accessible.description: highlightedText
        Accessible.focusable: true
    }
    FocusRing {
        visible: map.activeFocus
    }
    PlainLabel {
        anchors.centerIn: parent
        width: parent.width
        visible: map.isEmpty
        text: qsTr("Nothing to map")
        color: Theme.secondaryText
        horizontalAlignment: Text.AlignHCenter
    }
    Item {
        id: pointed

        x: map.highlightedPlace.x
        y: map.highlightedPlace.y
        width: map.highlightedPlace.width
        height: map.highlightedPlace.height

        PlainToolTip {
            parent: pointed
            text: map.highlightedText
            visible: map.highlightedText !== ""
            delay: map.activeFocus ? 0 : 400
        }
    }
}
