import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// The states of volumes that the system keeps on them.
PerformancePanel {
    id: panel

    required property PerformanceViewModel controller
    readonly property int mostRows: 5

    title: qsTr("Local snapshots")

    ElidedLabel {
        objectName: "snapshotsText"
        Layout.fillWidth: true
        text: panel.controller.knowsSnapshots ? panel.controller.snapshotsText : qsTr("Looking for them")
        color: Theme.secondaryText
        maximumLineCount: 2
        wrapMode: Text.Wrap
    }
    DataTable {
        objectName: "snapshots"
        Layout.fillWidth: true
        // The rows stand within it, beside the scroll bar.
        Layout.leftMargin: -10
        Layout.rightMargin: -10
        implicitHeight: 30 + 8 + Math.min(panel.mostRows, count) * rowHeight
        visible: count > 0
        currentIndex: -1
        model: panel.controller.snapshotRows
        accessibleName: panel.title

        DataColumn {
            title: qsTr("Made")
            role: "dateText"
            fills: true
            minimumWidth: 140
        }
        DataColumn {
            title: qsTr("Volume")
            role: "volumeText"
            width: 64
        }
        DataColumn {
            title: qsTr("State")
            role: "purgeableText"
            width: 96
        }
    }
}
