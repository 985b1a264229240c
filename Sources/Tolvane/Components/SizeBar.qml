import QtQuick

/// A share of the whole, 0 to 1; always beside a figure, so it says nothing to assistive tools.
Rectangle {
    id: bar

    required property real share
    property color fill: Theme.shareBar

    implicitWidth: 80
    implicitHeight: 6
    radius: height / 2
    color: Theme.track
    Accessible.ignored: true

    Rectangle {
        // What is there but hardly counts still shows as a dot.
        width: bar.share > 0 ? Math.max(bar.height, bar.width * Math.min(bar.share, 1)) : 0
        height: bar.height
        radius: bar.radius
        color: bar.fill
    }
}
