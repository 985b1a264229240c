import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// What can be done for the machine, one at a time, and what came of it.
PerformancePanel {
    id: panel

    required property PerformanceViewModel controller

    title: qsTr("Maintenance")
    summary: qsTr("One at a time")

    // A layout would not outlive its items being replaced while it arranges them.
    Column {
        Layout.preferredWidth: panel.contentWidth

        Repeater {
            model: panel.controller.maintenanceRows

            MaintenanceRow {
                width: parent?.width ?? 0
            }
            onItemAdded: (index, item) => {
                const row = item as MaintenanceRow;
                row.runRequested.connect(() => panel.controller.runRow(row.actionKey));
                row.cancelRequested.connect(() => panel.controller.cancelActivity());
            }
        }
    }
}
