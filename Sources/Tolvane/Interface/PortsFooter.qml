import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// How many listeners there are, which cannot be seen, and how often they are asked for.
Item {
    id: footer

    required property PortsViewModel controller

    implicitHeight: Theme.toolbarHeight

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.pageMargin
        anchors.rightMargin: Theme.pageMargin
        spacing: Theme.wideSpacing

        ColumnLayout {
            spacing: 0

            ElidedLabel {
                objectName: "countText"
                Layout.fillWidth: true
                text: footer.controller.countText
            }
            ElidedLabel {
                objectName: "unseenText"
                Layout.fillWidth: true
                visible: text !== ""
                text: footer.controller.unseenText
                color: Theme.secondaryText
                font.pixelSize: Theme.smallText
            }
        }
        PlainLabel {
            objectName: "cadence"
            text: footer.controller.autoRefresh ? qsTr("refreshing every 4.5 s") : qsTr("refreshing only when asked")
            color: Theme.secondaryText
            font.pixelSize: Theme.smallText
        }
        TickLine {
            objectName: "autoRefresh"
            text: qsTr("Automatic refresh")
            isTicked: footer.controller.autoRefresh
            onClicked: footer.controller.setAutoRefresh(!footer.controller.autoRefresh)
        }
    }
}
