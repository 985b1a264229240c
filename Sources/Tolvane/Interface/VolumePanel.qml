import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// How full the system's volume is.
PerformancePanel {
    id: panel

    required property PerformanceViewModel controller

    title: qsTr("Volume")
    summary: controller.hasVolume ? controller.volumeName : qsTr("The system does not tell how full it is")

    ColumnLayout {
        visible: panel.controller.hasVolume
        spacing: Theme.spacing

        SizeBar {
            Layout.fillWidth: true
            implicitHeight: 10
            share: panel.controller.volumeUsed
        }
        ElidedLabel {
            objectName: "volumeText"
            Layout.fillWidth: true
            text: panel.controller.volumeText
        }
        ElidedLabel {
            Layout.fillWidth: true
            text: panel.controller.volumeNote
            color: Theme.secondaryText
            font.pixelSize: Theme.smallText
        }
    }
}
