import QtQuick
import Tolvane.Components

/// One application in the list of them.
TableRow {
    id: row

    ApplicationIcon {
        id: icon

        x: 12
        anchors.verticalCenter: parent.verticalCenter
        iconKey: row.model.iconKey
    }
    ElidedLabel {
        id: name

        anchors.left: icon.right
        anchors.leftMargin: 10
        anchors.right: parent.right
        anchors.rightMargin: 14
        y: row.model.versionText === "" && row.model.sizeText === "" ? (row.height - height) / 2 : 8
        text: row.model.name
        font.weight: Font.Medium
        Accessible.ignored: true
    }
    ElidedLabel {
        anchors.left: name.left
        anchors.right: size.left
        anchors.rightMargin: Theme.spacing
        y: 27
        text: row.model.versionText
        color: Theme.secondaryText
        font.pixelSize: Theme.smallText
        Accessible.ignored: true
    }
    FigureLabel {
        id: size

        anchors.right: name.right
        y: 27
        text: row.model.sizeText
        color: Theme.secondaryText
        font.pixelSize: Theme.smallText
        Accessible.ignored: true
    }
}
