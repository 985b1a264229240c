import QtQuick

/// Shares of one whole side by side, with a legend beneath; the rest of the bar stays empty.
Column {
    id: bar

    /// Roles: `title`, `figure` (ready texts), `share` (0 to 1 of the whole), in the order shown;
    /// colours follow `Theme.category`.
    required property var model
    property bool showsLegend: true

    spacing: Theme.spacing

    Rectangle {
        width: bar.width
        height: 16
        radius: Theme.smallRadius
        color: Theme.track
        clip: true

        Row {
            anchors.fill: parent
            spacing: 1

            Repeater {
                model: bar.model

                Rectangle {
                    required property int index
                    required property real share

                    width: parent ? Math.max(0, Math.round(parent.width * share) - 1) : 0
                    height: 16
                    radius: Theme.smallRadius
                    color: Theme.category(index)
                }
            }
        }
    }

    Flow {
        visible: bar.showsLegend
        width: bar.width
        spacing: Theme.wideSpacing

        Repeater {
            model: bar.model

            Row {
                id: entry

                required property int index
                required property string title
                required property string figure

                spacing: 6

                Rectangle {
                    anchors.verticalCenter: parent.verticalCenter
                    width: 10
                    height: 10
                    radius: 3
                    color: Theme.category(entry.index)
                }
                PlainLabel {
                    text: entry.title
                    color: Theme.secondaryText
                    font.pixelSize: Theme.smallText
                }
                FigureLabel {
                    text: entry.figure
                    font.pixelSize: Theme.smallText
                }
            }
        }
    }
}
