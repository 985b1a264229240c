import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// The folders in which something could not be read, and whether a missing right is why.
Sheet {
    id: sheet

    /// Roles: "pathText", "countText".
    required property Records folders
    required property AccessStatus access

    objectName: "failureSheet"
    preferredWidth: 620
    defaultButton: close

    SheetRows {
        objectName: "failureRows"
        model: sheet.folders
        accessibleName: sheet.title

        rowDelegate: TableRow {
            id: row

            Accessible.name: model.pathText + ", " + model.countText

            RowLayout {
                anchors.fill: parent
                anchors.leftMargin: 10
                anchors.rightMargin: 10
                spacing: 10

                Icon {
                    name: "folder"
                    color: Theme.secondaryText
                }
                ElidedLabel {
                    Layout.fillWidth: true
                    text: row.model.pathText
                    elide: Text.ElideMiddle
                    Accessible.ignored: true
                }
                FigureLabel {
                    text: row.model.countText
                    color: Theme.secondaryText
                    Accessible.ignored: true
                }
            }
        }
    }

    AccessNotice {
        Layout.fillWidth: true
        access: sheet.access
        hasFailures: sheet.folders.count > 0
    }

    buttons: [
        PrimaryButton {
            id: close

            objectName: "failuresClose"
            text: qsTr("Close")
            onClicked: sheet.dismissed()
        }
    ]
}
