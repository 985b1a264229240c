import QtQuick

/// How much of a job is done, or honestly that nobody knows.
Item {
    id: bar

    /// 0 to 1; negative: not known.
    required property real fraction
    readonly property bool isKnown: fraction >= 0

    implicitWidth: 240
    implicitHeight: 6
    clip: true
    Accessible.role: Accessible.ProgressBar
    Accessible.name: isKnown ? Math.round(100 * fraction) + " %" : qsTr("Working")

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: Theme.track
    }
    Rectangle {
        visible: bar.isKnown
        width: bar.fraction > 0 ? Math.max(bar.height, bar.width * Math.min(bar.fraction, 1)) : 0
        height: bar.height
        radius: height / 2
        color: Theme.accent

        Behavior on width {
            NumberAnimation { duration: Theme.duration }
        }
    }
    Rectangle {
        id: runner

        visible: !bar.isKnown
        // Without motion it stands in the middle: busy, and no promise of an end.
        x: Theme.reducesMotion ? (bar.width - width) / 2 : 0
        width: bar.width / 4
        height: bar.height
        radius: height / 2
        color: Theme.accent

        NumberAnimation on x {
            running: runner.visible && bar.visible && !Theme.reducesMotion
            from: -bar.width / 4
            to: bar.width
            duration: 1400
            loops: Animation.Infinite
        }
    }
}
