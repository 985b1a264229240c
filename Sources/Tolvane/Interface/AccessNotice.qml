import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// What keeps the program from reading everything, and what can be done about it. Takes no room when
/// nothing does.
Rectangle {
    id: notice

    required property ScanViewModel controller

    visible: !controller.isFullDiskAccessGranted
    implicitHeight: row.implicitHeight + Theme.wideSpacing
    radius: Theme.radius
    color: Theme.surface
    border.color: Theme.line

    RowLayout {
        id: row

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        anchors.leftMargin: 12
        anchors.rightMargin: 12
        spacing: 12

        Icon {
            name: "security-high"
            color: Theme.secondaryText
        }
        PlainLabel {
            objectName: "accessText"
            Layout.fillWidth: true
            text: notice.controller.fullDiskAccessText
            color: Theme.secondaryText
            font.pixelSize: Theme.smallText
            wrapMode: Text.Wrap
        }
        PlainButton {
            objectName: "recheckAccess"
            text: qsTr("Recheck")
            onClicked: notice.controller.refreshFDA()
        }
        PlainButton {
            text: qsTr("Open Settings")
            onClicked: notice.controller.openFullDiskAccessSettings()
        }
    }
}
