import QtQuick
import QtQuick.Templates as T

/// Bind `visible` to the hover of `parent`; paths wrap anywhere.
T.ToolTip {
    id: control

    x: parent ? Math.round((parent.width - implicitWidth) / 2) : 0
    y: parent ? parent.height + Theme.halfSpacing : 0
    implicitWidth: Math.min(implicitContentWidth + leftPadding + rightPadding, 480)
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    margins: Theme.spacing
    padding: 6
    leftPadding: Theme.spacing
    rightPadding: Theme.spacing
    delay: 600
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent | T.Popup.CloseOnReleaseOutsideParent

    contentItem: PlainLabel {
        text: control.text
        font.pixelSize: Theme.smallText
        wrapMode: Text.Wrap
    }

    background: Rectangle {
        radius: Theme.smallRadius
        color: Theme.raised
        border.color: Theme.line
    }
}
