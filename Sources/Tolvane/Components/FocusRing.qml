import QtQuick

/// The mark of keyboard focus around `parent`, drawn outside of it so that nothing moves.
Rectangle {
    property int gap: 1

    anchors.fill: parent
    anchors.margins: -gap - border.width
    radius: Theme.radius + gap
    color: "transparent"
    border.width: 2
    border.color: Theme.focusRing
}
