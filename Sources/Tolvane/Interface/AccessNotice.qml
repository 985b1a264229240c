import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// What kept the last run of a screen from reading everything, and what can be done about it. Takes
/// no room when nothing did.
Rectangle {
    id: notice

    required property AccessStatus access
    /// Whether the last run recorded any.
    required property bool hasFailures

    visible: hasFailures && !access.isGranted
    implicitHeight: row.implicitHeight + Theme.wideSpacing
    radius: Theme.radius
    color: Theme.surface
    border.color: Theme.line

    RowLayout {
        id: row

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        anchors.leftMargin: 12
        anchors.rightMargin: 12
        spacing: 12

        Icon {
            name: "security-high"
            color: Theme.secondaryText
        }
        PlainLabel {
            objectName: "accessText"
            Layout.fillWidth: true
            text: notice.access.guidanceText
            color: Theme.secondaryText
            font.pixelSize: Theme.smallText
            wrapMode: Text.Wrap
        }
        PlainButton {
            objectName: "recheckAccess"
            text: qsTr("Recheck")
            onClicked: notice.access.recheck()
        }
        PlainButton {
            objectName: "openAccessSettings"
            text: qsTr("Open Settings")
            onClicked: notice.access.openSettings()
        }
    }
}
