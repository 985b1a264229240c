import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// What there is before the first scan: what this is for, and places to begin with.
Item {
    id: page

    required property ScanViewModel controller

    Flickable {
        anchors.fill: parent
        contentWidth: width
        contentHeight: Math.max(height, column.implicitHeight + 2 * Theme.pageMargin)
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        ScrollBar.vertical: PlainScrollBar {}

        ColumnLayout {
            id: column

            anchors.centerIn: parent
            width: Math.min(parent.width - 2 * Theme.pageMargin, 704)
            spacing: Theme.pageMargin

            EmptyState {
                Layout.fillWidth: true
                iconName: "space-analysis"
                title: qsTr("See what fills your disk")
                text: qsTr("Choose a folder or drop one here. Its largest folders and files are shown, and what you do not need can be moved to the Trash.")
                actionText: qsTr("Choose folder...")
                note: qsTr("Scanning only reads names and sizes; it changes nothing.")
                onActionTriggered: page.controller.chooseFolder()
            }
            Flow {
                Layout.fillWidth: true
                spacing: Theme.wideSpacing

                Repeater {
                    model: page.controller.quickPlaces

                    Card {
                        required property int index
                        required property string title
                        required property string pathText
                        required property bool isAvailable

                        objectName: "quickPlace" + index
                        width: ((parent?.width ?? 0) - 2 * Theme.wideSpacing) / 3
                        enabled: isAvailable
                        text: title
                        note: isAvailable ? pathText : qsTr("Not there")
                    }
                    onItemAdded: (index, item) => (item as Card).clicked.connect(() => page.controller.scanQuickPlace(index))
                }
                Card {
                    objectName: "lastScan"
                    visible: page.controller.lastScanPath !== ""
                    width: (column.width - 2 * Theme.wideSpacing) / 3
                    iconName: "document-open-recent"
                    text: qsTr("Last scanned")
                    note: page.controller.lastScanPath
                    onClicked: page.controller.scanLast()
                }
            }
            AccessNotice {
                Layout.fillWidth: true
                controller: page.controller
            }
        }
    }
}
