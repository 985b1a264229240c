import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T

/// One line of a ContextMenu.
T.MenuItem {
    id: control

    property string iconName
    /// Shown at the right: "Ctrl+C". It does not make the keys work.
    property string shortcutText
    property bool isDestructive: false
    readonly property color ink: !enabled ? Theme.disabledText : isDestructive ? Theme.dangerText : Theme.text

    implicitWidth: 224
    implicitHeight: visible ? 32 : 0
    leftPadding: 10
    rightPadding: 10

    contentItem: RowLayout {
        spacing: 10

        Icon {
            visible: control.iconName !== ""
            name: control.iconName
            color: control.ink
            size: 16
        }
        PlainLabel {
            Layout.fillWidth: true
            text: control.text
            color: control.ink
            Accessible.ignored: true
        }
        PlainLabel {
            visible: text !== ""
            text: control.shortcutText
            color: control.enabled ? Theme.secondaryText : Theme.disabledText
            font.pixelSize: Theme.smallText
            Accessible.ignored: true
        }
    }

    background: Rectangle {
        radius: Theme.smallRadius
        color: control.highlighted ? control.isDestructive ? Theme.dangerSoft : Theme.accentSoft : "transparent"
    }
}
