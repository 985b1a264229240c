import QtQuick
import QtQuick.Layouts
import Tolvane.Components

/// One item that is about to be removed, and what stands in its way.
TableRow {
    id: row

    /// What a person should know before this item goes; empty: nothing.
    readonly property string remark: model.trouble === "" ? model.warning : model.trouble

    objectName: "reviewRow" + index
    height: content.implicitHeight + Theme.spacing
    Accessible.name: model.name + ", " + model.sizeText + (remark === "" ? "" : ", " + remark)

    RowLayout {
        id: content

        anchors.left: parent.left
        anchors.leftMargin: 10
        anchors.right: parent.right
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        spacing: 10

        Icon {
            name: row.remark === "" ? row.model.iconName : "dialog-warning"
            color: row.remark === "" ? Theme.secondaryText : Theme.warningText
        }
        ColumnLayout {
            spacing: 0

            ElidedLabel {
                Layout.fillWidth: true
                text: row.model.name
                fullText: row.model.pathText
                elide: Text.ElideMiddle
            }
            ElidedLabel {
                Layout.fillWidth: true
                text: row.model.pathText
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
            text: row.model.sizeText
        }
        IconButton {
            objectName: "leaveOut"
            // The table has the keyboard.
            focusPolicy: Qt.NoFocus
            iconName: "window-close"
            text: qsTr("Leave out")
            shortcutText: qsTr("Delete")
            ink: Theme.secondaryText
            onClicked: row.table.rowToggled(row.index)
        }
    }
}
