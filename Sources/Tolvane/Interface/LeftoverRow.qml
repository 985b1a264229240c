import QtQuick
import Tolvane.Components

/// One thing that an application leaves: where it lies, how sure it is its own, and what keeps it.
TableRow {
    id: row

    readonly property color remarkInk: model.isDoubtful ? Theme.warningText : Theme.secondaryText

    Icon {
        id: lock

        x: 16
        anchors.verticalCenter: parent.verticalCenter
        visible: name !== ""
        name: row.model.remarkIcon
        color: row.remarkInk
        size: 16
    }
    ElidedLabel {
        id: path

        anchors.left: parent.left
        anchors.leftMargin: lock.visible ? 42 : 16
        anchors.right: size.left
        anchors.rightMargin: Theme.wideSpacing
        y: 8
        text: row.model.pathText
        color: row.model.isProtected ? Theme.secondaryText : Theme.text
        elide: Text.ElideMiddle
        Accessible.ignored: true
    }
    FigureLabel {
        id: size

        anchors.right: parent.right
        anchors.rightMargin: 14
        y: 8
        text: row.model.sizeText
        Accessible.ignored: true
    }
    ElidedLabel {
        anchors.left: path.left
        anchors.right: parent.right
        anchors.rightMargin: 14
        y: 27
        text: row.model.remark
        color: row.remarkInk
        font.pixelSize: Theme.smallText
        Accessible.ignored: true
    }
}
