import QtQuick
import Tolvane.Components

/// How a share of a whole went over time, on a ground with a line at each quarter.
Item {
    id: graph

    /// From 0 to 1, of equal distance in time, oldest first; a negative one is a gap.
    required property list<real> values
    /// At the left and right end of the time.
    property string startText
    property string endText
    /// What the graph says, for assistive tools.
    required property string summary

    implicitWidth: 320
    implicitHeight: 140
    Accessible.role: Accessible.Graphic
    Accessible.name: summary

    Rectangle {
        anchors.fill: parent
        anchors.bottomMargin: start.implicitHeight + Theme.halfSpacing
        radius: Theme.smallRadius
        color: Theme.window
        border.color: Theme.line

        Repeater {
            model: 3

            Rectangle {
                required property int index

                x: 1
                y: Math.round((parent?.height ?? 0) * (index + 1) / 4)
                width: (parent?.width ?? 2) - 2
                height: 1
                color: Theme.line
            }
        }
        HistoryLine {
            anchors.fill: parent
            anchors.margins: 1
            values: graph.values
            lineColor: Theme.shareBar
            fillColor: Qt.alpha(Theme.shareBar, 0.22)
        }
    }
    PlainLabel {
        id: start

        anchors.left: parent.left
        anchors.bottom: parent.bottom
        text: graph.startText
        color: Theme.secondaryText
        font.pixelSize: Theme.smallText
        Accessible.ignored: true
    }
    PlainLabel {
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        text: graph.endText
        color: Theme.secondaryText
        font.pixelSize: Theme.smallText
        Accessible.ignored: true
    }
}
