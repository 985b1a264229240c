import QtQuick
import QtQuick.Templates as T
import QtQuick.Layouts

/// A place or module to go to: a drawing, a title and a quiet line.
T.AbstractButton {
    id: control

    required property string iconName
    /// A quiet line under `text`; paths are elided in the middle.
    property string note

    implicitWidth: 224
    implicitHeight: 64
    leftPadding: 12
    rightPadding: 12
    opacity: enabled ? 1 : 0.5
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.description: note
    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

    contentItem: RowLayout {
        spacing: 12

        Rectangle {
            implicitWidth: 40
            implicitHeight: 40
            radius: Theme.spacing
            color: Theme.accentSoft

            Icon {
                anchors.centerIn: parent
                name: control.iconName
                color: Theme.accentText
                size: 22
            }
        }
        ColumnLayout {
            spacing: 1

            ElidedLabel {
                Layout.fillWidth: true
                text: control.text
                font.weight: Font.Medium
            }
            ElidedLabel {
                Layout.fillWidth: true
                visible: text !== ""
                text: control.note
                color: Theme.secondaryText
                font.pixelSize: Theme.smallText
                elide: Text.ElideMiddle
            }
        }
    }

    background: Rectangle {
        radius: Theme.cardRadius
        color: control.down ? Theme.controlPressed : control.hovered ? Theme.controlHovered : Theme.surface
        border.color: control.hovered ? Theme.outline : Theme.line

        Behavior on color {
            ColorAnimation { duration: Theme.duration }
        }

        FocusRing {
            radius: Theme.cardRadius + gap
            visible: control.visualFocus
        }
    }
}
