import QtQuick
import QtQuick.Controls.Basic
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

    ListView {
        objectName: "failureRows"
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.preferredHeight: contentHeight
        Layout.minimumHeight: Math.min(contentHeight, 88)
        model: sheet.folders
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        activeFocusOnTab: true
        ScrollBar.vertical: PlainScrollBar {}

        delegate: RowLayout {
            id: row

            required property string pathText
            required property string countText

            width: (ListView.view?.width ?? 12) - 12
            height: Theme.rowHeight
            spacing: 10

            Icon {
                name: "folder"
                color: Theme.secondaryText
            }
            ElidedLabel {
                Layout.fillWidth: true
                text: row.pathText
                elide: Text.ElideMiddle
            }
            FigureLabel {
                text: row.countText
                color: Theme.secondaryText
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
