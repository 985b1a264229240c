import QtQuick
import Tolvane.Components

/// One crash report in the settings.
Item {
    id: report

    required property int index
    required property string name
    required property string pathText

    signal revealRequested(int row)

    implicitHeight: Theme.rowHeight

    ElidedLabel {
        anchors.left: parent.left
        anchors.right: reveal.left
        anchors.verticalCenter: parent.verticalCenter
        text: report.name
        fullText: report.pathText
        elide: Text.ElideMiddle
    }
    IconButton {
        id: reveal

        objectName: "revealReport" + report.index
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        iconName: "folder-open"
        text: qsTr("Reveal")
        onClicked: report.revealRequested(report.index)
    }
}
