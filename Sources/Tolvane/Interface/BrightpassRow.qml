import QtQuick
import Tolvane
import Tolvane.Components

/// A line of one part of the check: what it is, its size, and its share of the part.
TableRow {
    id: row

    ElidedLabel {
        id: name

        anchors.left: parent.left
        anchors.leftMargin: Theme.wideSpacing
        anchors.right: size.left
        anchors.rightMargin: Theme.spacing
        y: 6
        text: row.model.name
        color: row.model.isThere ? Theme.text : Theme.secondaryText
        elide: Text.ElideMiddle
        Accessible.ignored: true
    }
    FigureLabel {
        id: size

        anchors.right: parent.right
        anchors.rightMargin: 14
        y: 6
        text: row.model.sizeText
        color: row.model.isThere ? Theme.text : Theme.secondaryText
        Accessible.ignored: true
    }
    ElidedLabel {
        anchors.left: name.left
        anchors.right: parent.right
        anchors.rightMargin: 14
        y: 24
        text: row.model.note
        color: Theme.secondaryText
        font.pixelSize: Theme.smallText
        elide: Text.ElideMiddle
        Accessible.ignored: true
    }
    SizeBar {
        anchors.left: name.left
        anchors.right: parent.right
        anchors.rightMargin: 14
        y: 43
        implicitHeight: 3
        share: row.model.share
    }
}
