import QtQuick
import QtQuick.Templates as T

/// What PrimaryButton, PlainButton and DestructiveButton share; screens use those.
T.Button {
    id: control

    /// A drawing before the text; empty: none. With an empty text set Accessible.name.
    property string iconName
    required property color fill
    required property color hoveredFill
    required property color pressedFill
    required property color ink
    property color edge: "transparent"

    implicitWidth: Math.max(implicitContentWidth + leftPadding + rightPadding, text === "" ? 0 : 72)
    implicitHeight: Theme.controlHeight
    leftPadding: iconName === "" ? 14 : 10
    rightPadding: text === "" ? 10 : 14
    opacity: enabled ? 1 : 0.5
    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

    contentItem: Item {
        implicitWidth: children[0].implicitWidth
        implicitHeight: children[0].implicitHeight

        Row {
            anchors.centerIn: parent
            spacing: 6

            Icon {
                anchors.verticalCenter: parent.verticalCenter
                visible: control.iconName !== ""
                name: control.iconName
                color: control.ink
                size: 18
            }
            Text {
                anchors.verticalCenter: parent.verticalCenter
                visible: text !== ""
                text: control.text
                textFormat: Text.PlainText
                color: control.ink
                font.family: Theme.family
                font.pixelSize: Theme.bodyText
                font.weight: Font.Medium
            }
        }
    }

    background: Rectangle {
        radius: Theme.radius
        color: control.down ? control.pressedFill : control.hovered ? control.hoveredFill : control.fill
        border.width: control.edge.a > 0 ? 1 : 0
        border.color: control.edge

        Behavior on color {
            ColorAnimation { duration: Theme.duration }
        }

        FocusRing {
            visible: control.visualFocus
        }
    }
}
