import QtQuick
import QtQuick.Layouts

/// A job at work. All texts are ready ones; what changes keeps its place, so that nothing jumps.
Rectangle {
    id: panel

    required property string title
    /// What is read right now; elided in the middle.
    property string path
    /// "12,034 items, 3.4 GB".
    property string counts
    /// "0:42".
    property string elapsed
    /// "about 2 minutes left"; empty where no estimate exists.
    property string remaining
    /// 0 to 1; negative: not known.
    property real fraction: -1
    property bool isCancellable: true
    property string cancelText: qsTr("Cancel")

    signal cancelRequested()

    implicitWidth: 560
    implicitHeight: column.implicitHeight + 2 * Theme.pageMargin
    radius: Theme.cardRadius
    color: Theme.surface
    border.color: Theme.line
    Accessible.role: Accessible.Grouping
    Accessible.name: title

    ColumnLayout {
        id: column

        anchors.fill: parent
        anchors.margins: Theme.pageMargin
        spacing: 12

        RowLayout {
            spacing: Theme.wideSpacing

            ElidedLabel {
                Layout.fillWidth: true
                text: panel.title
                font.pixelSize: Theme.titleText
                font.weight: Font.DemiBold
            }
            PlainButton {
                objectName: "progressCancel"
                visible: panel.isCancellable
                text: panel.cancelText
                onClicked: panel.cancelRequested()
            }
        }
        FractionBar {
            Layout.fillWidth: true
            fraction: panel.fraction
        }
        // Anchors: a layout misses texts that change before it is first shown.
        Item {
            Layout.fillWidth: true
            implicitHeight: counts.implicitHeight

            FigureLabel {
                id: counts

                objectName: "progressCounts"
                horizontalAlignment: Text.AlignLeft
                text: panel.counts
            }
            PlainLabel {
                anchors.right: elapsed.left
                anchors.rightMargin: Theme.wideSpacing
                text: panel.remaining
                color: Theme.secondaryText
            }
            FigureLabel {
                id: elapsed

                anchors.right: parent.right
                text: panel.elapsed
                color: Theme.secondaryText
            }
        }
        ElidedLabel {
            objectName: "progressPath"
            Layout.fillWidth: true
            // Keeps its line while there is no path yet.
            Layout.preferredHeight: 18
            text: panel.path
            color: Theme.secondaryText
            font.pixelSize: Theme.smallText
            elide: Text.ElideMiddle
        }
    }
}
