import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// Everything known of one item, and a map of what lies in it.
Rectangle {
    id: panel

    required property ScanViewModel controller
    readonly property InspectedItem item: controller.inspector

    implicitWidth: 296
    radius: Theme.cardRadius
    color: Theme.surface
    border.color: Theme.line
    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Inspector")

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: Theme.wideSpacing
        spacing: Theme.spacing

        RowLayout {
            visible: panel.item.hasItem
            spacing: 10

            Icon {
                name: panel.item.iconName
                color: Theme.accentText
                size: 24
            }
            ElidedLabel {
                objectName: "inspectedName"
                Layout.fillWidth: true
                text: panel.item.name
                font.weight: Font.DemiBold
                elide: Text.ElideMiddle
            }
        }
        ElidedLabel {
            objectName: "inspectedPath"
            Layout.fillWidth: true
            visible: panel.item.hasItem
            text: panel.item.pathText
            color: Theme.secondaryText
            font.pixelSize: Theme.smallText
            elide: Text.ElideMiddle
        }
        // A layout would not outlive its items being replaced while it arranges them.
        Column {
            Layout.fillWidth: true
            spacing: 6

            Repeater {
                model: panel.item.details

                InspectorLine {
                    width: parent?.width ?? 0
                }
            }
        }
        RowLayout {
            Layout.topMargin: Theme.halfSpacing
            Layout.bottomMargin: Theme.halfSpacing
            visible: panel.item.hasItem
            spacing: Theme.spacing

            PlainButton {
                objectName: "reveal"
                Layout.fillWidth: true
                iconName: "folder-open"
                text: qsTr("Reveal")
                onClicked: panel.controller.reveal(panel.item.nodeID)
            }
            PlainButton {
                objectName: "copyPath"
                Layout.fillWidth: true
                iconName: "edit-copy"
                text: qsTr("Copy path")
                onClicked: panel.controller.copyPath(panel.item.nodeID)
            }
        }
        PlainLabel {
            Layout.fillWidth: true
            visible: !panel.item.hasItem
            text: qsTr("Click an item to see its details.")
            color: Theme.secondaryText
            wrapMode: Text.Wrap
        }
        TreemapView {
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.minimumHeight: 80
            controller: panel.controller
        }
    }
}
