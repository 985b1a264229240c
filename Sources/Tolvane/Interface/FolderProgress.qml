import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// A folder being read in detail, in one line: its items as they were stay on screen meanwhile.
RowLayout {
    id: line

    required property ScanViewModel controller

    spacing: 12

    ElidedLabel {
        objectName: "folderProgressTitle"
        Layout.maximumWidth: 240
        text: line.controller.activity.title
        fullText: line.controller.loadingPath
    }
    FractionBar {
        Layout.fillWidth: true
        Layout.minimumWidth: 60
        Layout.maximumWidth: 240
        fraction: line.controller.activity.fraction
    }
    ElidedLabel {
        Layout.fillWidth: true
        text: line.controller.activity.countsText
        color: Theme.secondaryText
        font.pixelSize: Theme.smallText
    }
    PlainButton {
        objectName: "cancelFolderLoad"
        text: qsTr("Cancel")
        onClicked: line.controller.cancelFolderLoad()
    }
}
