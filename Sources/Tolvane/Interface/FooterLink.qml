import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Tolvane.Components

/// A quiet text of the footer that leads to a sheet.
T.AbstractButton {
    id: link

    required property string iconName
    property color ink: Theme.accentText

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    leftPadding: Theme.spacing
    rightPadding: Theme.spacing
    implicitHeight: Theme.controlHeight
    Accessible.role: Accessible.Button
    Accessible.name: text
    Keys.onReturnPressed: link.clicked()
    Keys.onEnterPressed: link.clicked()

    contentItem: RowLayout {
        spacing: 6

        Icon {
            name: link.iconName
            color: link.ink
            size: 16
        }
        PlainLabel {
            text: link.text
            color: link.ink
            font.underline: link.hovered
        }
    }
    background: Rectangle {
        radius: Theme.radius
        color: link.down ? Theme.press : link.hovered ? Theme.hover : "transparent"

        FocusRing {
            gap: -2
            visible: link.visualFocus
        }
    }
}
