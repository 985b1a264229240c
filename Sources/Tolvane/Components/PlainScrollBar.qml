import QtQuick
import QtQuick.Templates as T

/// `ScrollBar.vertical: PlainScrollBar {}`. Thin, wider under the pointer, gone where nothing scrolls.
T.ScrollBar {
    id: control

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: 2
    minimumSize: 0.06
    visible: policy !== T.ScrollBar.AlwaysOff && size < 1
    Accessible.ignored: true

    contentItem: Rectangle {
        implicitWidth: 8
        implicitHeight: 8
        radius: 4
        color: control.pressed ? Theme.secondaryText : Theme.outline
        opacity: control.pressed || control.hovered ? 1 : 0.55
    }
}
