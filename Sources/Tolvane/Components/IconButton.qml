import QtQuick
import QtQuick.Templates as T

/// A flat button of one drawing; `text` is its tooltip and its name for assistive tools.
T.Button {
    id: control

    required property string iconName
    property color ink: Theme.text
    /// Follows the text in the tooltip: "Back (Alt+Left)".
    property string shortcutText

    implicitWidth: Theme.controlHeight
    implicitHeight: Theme.controlHeight
    opacity: enabled ? 1 : 0.4
    Accessible.name: text
    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

    contentItem: Item {
        Icon {
            anchors.centerIn: parent
            name: control.iconName
            color: control.ink
            size: 18
        }
    }

    background: Rectangle {
        radius: Theme.radius
        color: control.down ? Theme.press : control.hovered || control.checked ? Theme.hover : "transparent"

        FocusRing {
            gap: -2
            visible: control.visualFocus
        }
    }

    LazyToolTip {
        isWanted: (control.hovered || control.visualFocus) && !control.down
        text: control.shortcutText === "" ? control.text : control.text + " (" + control.shortcutText + ")"
    }
}
