import QtQuick
import QtQuick.Layouts
import Tolvane.Components

/// Something that can be done for the machine: what it does, what came of it, and its button.
Item {
    id: row

    required property int index
    required property string actionKey
    required property string title
    required property string note
    required property string actionText
    required property string statusText
    required property bool isRunning
    required property bool hasFailed
    required property bool isAvailable

    signal runRequested()
    signal cancelRequested()

    implicitHeight: line.implicitHeight + 2 * Theme.spacing
    Accessible.role: Accessible.Grouping
    Accessible.name: title

    Rectangle {
        width: parent.width
        height: 1
        visible: row.index > 0
        color: Theme.line
    }
    RowLayout {
        id: line

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.wideSpacing

        ColumnLayout {
            spacing: 2

            PlainLabel {
                Layout.fillWidth: true
                text: row.title
            }
            PlainLabel {
                Layout.fillWidth: true
                text: row.note
                color: Theme.secondaryText
                font.pixelSize: Theme.smallText
                wrapMode: Text.Wrap
            }
            RowLayout {
                spacing: 6
                visible: row.statusText !== ""

                Icon {
                    Layout.alignment: Qt.AlignTop
                    visible: !row.isRunning
                    name: row.hasFailed ? "dialog-warning" : "emblem-ok"
                    color: status.color
                    size: 14
                }
                PlainLabel {
                    id: status

                    objectName: "status-" + row.actionKey
                    Layout.fillWidth: true
                    text: row.statusText
                    color: row.isRunning ? Theme.accentText : row.hasFailed ? Theme.warningText : Theme.successText
                    font.pixelSize: Theme.smallText
                    wrapMode: Text.Wrap
                    maximumLineCount: 4
                    Accessible.name: row.hasFailed ? qsTr("Failed: %1").arg(text) : text
                }
            }
            FractionBar {
                Layout.fillWidth: true
                Layout.maximumWidth: 240
                implicitHeight: 4
                visible: row.isRunning
                fraction: -1
            }
        }
        PlainButton {
            objectName: "cancel-" + row.actionKey
            visible: row.isRunning
            text: qsTr("Cancel")
            onClicked: row.cancelRequested()
        }
        PlainButton {
            objectName: "run-" + row.actionKey
            Layout.minimumWidth: 120
            enabled: row.isAvailable
            text: row.actionText
            Accessible.name: row.title
            Accessible.description: row.note
            onClicked: row.runRequested()
        }
    }
}
