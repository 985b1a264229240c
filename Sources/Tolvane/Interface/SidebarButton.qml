import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Tolvane.Components

/// One line of the sidebar.
T.AbstractButton {
    id: button

    required property string iconName
    property bool isCurrent: false

    implicitHeight: 36
    leftPadding: Theme.spacing
    rightPadding: Theme.spacing
    Accessible.role: Accessible.PageTab
    Accessible.name: text
    Accessible.selected: isCurrent
    Keys.onReturnPressed: button.clicked()
    Keys.onEnterPressed: button.clicked()

    contentItem: RowLayout {
        spacing: 10

        Icon {
            name: button.iconName
            color: button.isCurrent ? Theme.accentText : Theme.secondaryText
        }
        PlainLabel {
            Layout.fillWidth: true
            text: button.text
            font.weight: button.isCurrent ? Font.DemiBold : Font.Normal
        }
    }

    background: Rectangle {
        radius: Theme.radius
        color: button.isCurrent ? Theme.accentSoft
            : button.down ? Theme.press : button.hovered ? Theme.hover : "transparent"

        FocusRing {
            gap: -2
            visible: button.visualFocus
        }
    }
}
