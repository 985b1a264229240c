import QtQuick
import QtQuick.Layouts
import Tolvane.Components

/// One item that is about to be removed, and what stands in its way.
Item {
    id: row

    required property string name
    required property string pathText
    required property string sizeText
    required property string iconName
    required property string trouble

    signal leftOut()

    implicitHeight: content.implicitHeight + Theme.spacing
    Accessible.role: Accessible.ListItem
    Accessible.name: trouble === "" ? name + ", " + sizeText : name + ", " + sizeText + ", " + trouble

    RowLayout {
        id: content

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        spacing: 10

        Icon {
            name: row.trouble === "" ? row.iconName : "dialog-warning"
            color: row.trouble === "" ? Theme.secondaryText : Theme.warningText
        }
        ColumnLayout {
            spacing: 0

            ElidedLabel {
                Layout.fillWidth: true
                text: row.name
                fullText: row.pathText
                elide: Text.ElideMiddle
            }
            ElidedLabel {
                Layout.fillWidth: true
                text: row.trouble === "" ? row.pathText : row.trouble
                color: row.trouble === "" ? Theme.secondaryText : Theme.warningText
                font.pixelSize: Theme.smallText
                elide: Text.ElideMiddle
            }
        }
        FigureLabel {
            text: row.sizeText
        }
        IconButton {
            objectName: "leaveOut"
            iconName: "window-close"
            text: qsTr("Leave out")
            ink: Theme.secondaryText
            onClicked: row.leftOut()
        }
    }
}
