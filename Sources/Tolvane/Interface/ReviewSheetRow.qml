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
    required property string warning
    /// What a person should know before this item goes; empty: nothing.
    readonly property string remark: trouble === "" ? warning : trouble

    signal leftOut()

    implicitHeight: content.implicitHeight + Theme.spacing
    Accessible.role: Accessible.ListItem
    Accessible.name: remark === "" ? name + ", " + sizeText : name + ", " + sizeText + ", " + remark

    RowLayout {
        id: content

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        spacing: 10

        Icon {
            name: row.remark === "" ? row.iconName : "dialog-warning"
            color: row.remark === "" ? Theme.secondaryText : Theme.warningText
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
                text: row.pathText
                color: Theme.secondaryText
                font.pixelSize: Theme.smallText
                elide: Text.ElideMiddle
            }
            ElidedLabel {
                Layout.fillWidth: true
                visible: text !== ""
                text: row.remark
                color: Theme.warningText
                font.pixelSize: Theme.smallText
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
