import QtQuick
import QtQuick.Templates as T

/// One folder of a PathBar; the first one hidden stands as "…" for all that are.
T.AbstractButton {
    id: control

    required property int index
    required property string name
    required property string pathText
    /// The PathBar; untyped, because types that name each other do not load.
    readonly property var bar: parent?.parent ?? null
    readonly property bool isLast: bar !== null && index === bar.count - 1
    readonly property bool isOverflow: bar !== null && index === 1 && bar.firstShown > 1
    /// The room its whole name would take, within reason.
    readonly property real wantedWidth: Math.min(Math.ceil(label.implicitWidth), 220) + leftPadding + rightPadding

    objectName: "crumb" + index
    visible: isOverflow || index === 0 || bar === null || index >= bar.firstShown
    width: isOverflow ? 36 : bar === null ? wantedWidth : Math.min(wantedWidth, bar.roomFor(index))
    height: Theme.controlHeight
    leftPadding: index === 0 ? 10 : 26
    rightPadding: 10
    focusPolicy: isLast ? Qt.StrongFocus : Qt.ClickFocus
    Accessible.role: Accessible.Button
    Accessible.name: isOverflow ? qsTr("Hidden folders") : name
    Accessible.description: pathText
    Keys.onLeftPressed: bar.focusFrom(index, -1)
    Keys.onRightPressed: bar.focusFrom(index, 1)
    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

    Icon {
        x: 1
        anchors.verticalCenter: parent.verticalCenter
        visible: control.index > 0
        name: "go-next"
        color: Theme.secondaryText
        size: 14
    }
    PlainLabel {
        id: label

        x: control.leftPadding
        width: control.availableWidth
        height: control.height
        visible: !control.isOverflow
        text: control.name
        color: control.isLast ? Theme.text : Theme.secondaryText
        font.weight: control.isLast ? Font.DemiBold : Font.Normal
        elide: Text.ElideMiddle
        Accessible.ignored: true
    }
    PlainLabel {
        x: 20
        width: 16
        height: control.height
        visible: control.isOverflow
        text: "…"
        horizontalAlignment: Text.AlignHCenter
        Accessible.ignored: true
    }
    LazyToolTip {
        isWanted: control.hovered && !control.isOverflow
        text: control.pathText
    }

    background: Item {
        Rectangle {
            x: control.index === 0 ? 0 : 18
            width: parent.width - x
            height: parent.height
            radius: Theme.radius
            color: control.down ? Theme.press : control.hovered ? Theme.hover : "transparent"

            FocusRing {
                gap: -2
                visible: control.visualFocus
            }
        }
    }
}
