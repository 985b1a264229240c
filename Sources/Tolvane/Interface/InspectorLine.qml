import QtQuick
import Tolvane.Components

/// One thing known of the inspected item.
Item {
    id: line

    required property string label
    required property string value

    implicitHeight: 16

    PlainLabel {
        id: name

        height: parent.height
        text: line.label
        color: Theme.secondaryText
        font.pixelSize: Theme.smallText
    }
    ElidedLabel {
        anchors.left: name.right
        anchors.leftMargin: Theme.spacing
        anchors.right: parent.right
        height: parent.height
        text: line.value
        font.pixelSize: Theme.smallText
        font.family: Theme.figureFamily
        horizontalAlignment: Text.AlignRight
    }
}
