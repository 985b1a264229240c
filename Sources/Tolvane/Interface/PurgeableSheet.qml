import QtQuick
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
    SheetRows {
        id: files

        objectName: "purgeableRows"
        visible: count > 0
        model: sheet.controller.purgeable
        rowHeight: 44
        isActivatable: true
        accessibleName: sheet.title
        onRowActivated: row => sheet.controller.revealPurgeable(row)

        rowDelegate: TableRow {
            id: row

            Accessible.name: model.name + ", " + model.sizeText

            RowLayout {
                anchors.fill: parent
                anchors.leftMargin: 10
                anchors.rightMargin: 10
                spacing: 10

                Icon {
                    name: "text-x-generic"
                    color: Theme.secondaryText
                }
                ColumnLayout {
                    spacing: 0

                    ElidedLabel {
                        Layout.fillWidth: true
                        text: row.model.name
                        elide: Text.ElideMiddle
                        Accessible.ignored: true
                    }
                    ElidedLabel {
                        Layout.fillWidth: true
                        text: row.model.pathText
                        color: Theme.secondaryText
                        font.pixelSize: Theme.smallText
                        elide: Text.ElideMiddle
                        Accessible.ignored: true
                    }
                }
                FigureLabel {
                    text: row.model.sizeText
                    Accessible.ignored: true
                }
                IconButton {
                    // The table has the keyboard.
                    focusPolicy: Qt.NoFocus
                    iconName: "folder-open"
                    text: qsTr("Show in file manager")
                    shortcutText: qsTr("Return")
                    ink: Theme.secondaryText
                    onClicked: row.table.rowActivated(row.index)
                }
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
