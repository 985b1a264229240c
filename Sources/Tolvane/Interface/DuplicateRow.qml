import QtQuick
import Tolvane
import Tolvane.Components

/// A group of equal files, or one file of it.
TableRow {
    id: row

    readonly property bool isHeader: model.isHeader
    readonly property bool isDoubtful: model.uncertainText !== ""
    /// What is said of the file, the gravest first.
    readonly property string remark: isDoubtful ? model.uncertainText : model.linkText !== "" ? model.linkText
        : model.isKept ? qsTr("Stays") : ""
    readonly property color remarkInk: isDoubtful ? Theme.warningText : model.isKept ? Theme.successText : Theme.secondaryText

    readonly property string remarkIcon: isDoubtful ? "dialog-warning" : model.isKept ? "emblem-ok"
        : model.linkText !== "" ? "emblem-symbolic-link" : ""
    /// Where there is none, pictures stand for the remarks.
    readonly property bool hasRoomForRemarks: width >= 760
    readonly property real remarkX: width - (hasRoomForRemarks ? 344 : 198)
    readonly property real folderX: 94 + (remarkX - 94) / 2

    gap: isHeader ? 4 : 0

    Rectangle {
        anchors.fill: parent
        anchors.topMargin: row.gap
        anchors.leftMargin: 4
        anchors.rightMargin: 4
        z: -1
        visible: row.isHeader
        radius: Theme.smallRadius
        color: Theme.surface
        border.color: Theme.line
    }

    Item {
        anchors.fill: parent
        anchors.topMargin: row.gap

        TriStateBox {
            id: box

            objectName: "tick"
            x: row.isHeader ? 8 : 34
            anchors.verticalCenter: parent.verticalCenter
            focusPolicy: Qt.NoFocus
            mark: row.model.tick
            text: row.model.name
            onClicked: row.table.rowToggled(row.index)
        }
        Icon {
            id: icon

            anchors.left: box.right
            anchors.leftMargin: 4
            anchors.verticalCenter: parent.verticalCenter
            name: !row.isHeader ? row.model.iconName : row.model.isCollapsed ? "go-next" : "pan-down"
            color: Theme.secondaryText
            size: 18

            MouseArea {
                objectName: "disclosure"
                anchors.fill: parent
                anchors.margins: -7
                enabled: row.isHeader
                onClicked: row.table.rowActivated(row.index)
            }
        }
        ElidedLabel {
            anchors.left: icon.right
            anchors.leftMargin: Theme.spacing
            width: row.folderX - Theme.wideSpacing - x
            height: parent.height
            text: row.model.name
            fullText: row.isHeader ? text : row.model.pathText
            elide: Text.ElideMiddle
            font.weight: row.isHeader ? Font.DemiBold : Font.Normal
            Accessible.ignored: true
        }
        ElidedLabel {
            x: row.folderX
            width: row.remarkX - Theme.wideSpacing - x
            height: parent.height
            text: row.isHeader ? qsTr("%1 each").arg(row.model.sizeText) : row.model.folderText
            color: Theme.secondaryText
            elide: Text.ElideMiddle
            Accessible.ignored: true
        }
        Icon {
            x: row.remarkX
            anchors.verticalCenter: parent.verticalCenter
            visible: !row.isHeader && name !== ""
            name: row.remarkIcon
            color: row.remarkInk
            size: 16
        }
        PlainLabel {
            x: row.remarkX + (row.isHeader ? 0 : 22)
            height: parent.height
            visible: row.hasRoomForRemarks
            text: row.isHeader ? row.model.tickedText : row.remark
            color: row.remarkInk
            font.pixelSize: Theme.smallText
            Accessible.ignored: true
        }
        FigureLabel {
            anchors.right: parent.right
            anchors.rightMargin: 14
            height: parent.height
            text: row.isHeader ? row.model.wasteText : row.model.modifiedText
            color: row.isHeader ? Theme.text : Theme.secondaryText
            font.weight: row.isHeader ? Font.Medium : Font.Normal
            Accessible.ignored: true
        }
    }
}
