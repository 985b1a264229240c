import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// The largest files that the system may delete by itself.
Sheet {
    id: sheet

    required property ScanViewModel controller

    objectName: "purgeableSheet"
    title: qsTr("Purgeable files")
    preferredWidth: 620
    defaultButton: close
    isShown: controller.showPurgeable
    onDismissed: controller.closePurgeable()

    PlainLabel {
        Layout.fillWidth: true
        text: qsTr("Applications make these files again when they need them.")
        color: Theme.secondaryText
        wrapMode: Text.Wrap
        visible: files.count > 0
    }
    ListView {
        id: files

        readonly property ScanViewModel controller: sheet.controller

        objectName: "purgeableRows"
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.preferredHeight: contentHeight
        Layout.minimumHeight: Math.min(contentHeight, 88)
        visible: count > 0
        model: sheet.controller.purgeable
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        activeFocusOnTab: true
        ScrollBar.vertical: PlainScrollBar {}

        delegate: RowLayout {
            id: row

            readonly property var list: ListView.view

            required property string nodeID
            required property string name
            required property string pathText
            required property string sizeText

            width: (list?.width ?? 12) - 12
            height: 44
            spacing: 10

            Icon {
                name: "text-x-generic"
                color: Theme.secondaryText
            }
            ColumnLayout {
                spacing: 0

                ElidedLabel {
                    Layout.fillWidth: true
                    text: row.name
                    elide: Text.ElideMiddle
                }
                ElidedLabel {
                    Layout.fillWidth: true
                    text: row.pathText
                    color: Theme.secondaryText
                    font.pixelSize: Theme.smallText
                    elide: Text.ElideMiddle
                }
            }
            FigureLabel {
                text: row.sizeText
            }
            IconButton {
                iconName: "folder-open"
                text: qsTr("Show in file manager")
                ink: Theme.secondaryText
                onClicked: row.list.controller.reveal(row.nodeID)
            }
        }
    }
    EmptyState {
        objectName: "purgeableEmpty"
        Layout.fillWidth: true
        visible: files.count === 0
        iconName: "purgeable"
        title: qsTr("No purgeable files were retained in this scan.")
    }

    buttons: [
        PrimaryButton {
            id: close

            objectName: "purgeableClose"
            text: qsTr("Close")
            onClicked: sheet.controller.closePurgeable()
        }
    ]
}
