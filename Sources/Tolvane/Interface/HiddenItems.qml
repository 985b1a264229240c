import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// What the scan counted without keeping each item. Takes no room when it kept them all.
Rectangle {
    id: row

    required property ScanViewModel controller

    visible: controller.folder.hiddenText !== "" && controller.folder.count > 0
    implicitHeight: 44
    radius: Theme.radius
    color: Theme.surface
    border.color: Theme.line

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 12
        anchors.rightMargin: 6
        spacing: 12

        Icon {
            name: "view-more"
            color: Theme.secondaryText
        }
        ElidedLabel {
            objectName: "hiddenText"
            Layout.fillWidth: true
            text: row.controller.folder.hiddenText
        }
        SizeBar {
            share: row.controller.folder.hiddenShare
        }
        PlainButton {
            objectName: "rescanInDetail"
            enabled: !row.controller.isLoadingFolder
            text: qsTr("Rescan in detail")
            onClicked: row.controller.rescanInDetail()
        }
    }
}
