import QtQuick
import QtQuick.Templates as T

/// One of a few presentations. `activated` asks the owner to change `currentIndex`. Left and Right
/// choose while it has the focus.
Rectangle {
    id: control

    /// Objects with `icon` (a drawing) and `text` (tooltip and accessible name).
    required property var segments
    required property int currentIndex

    signal activated(int index)

    implicitWidth: row.implicitWidth + 4
    implicitHeight: Theme.controlHeight
    radius: Theme.radius
    color: Theme.controlPressed
    activeFocusOnTab: true
    Accessible.role: Accessible.Grouping
    Keys.onLeftPressed: if (currentIndex > 0) activated(currentIndex - 1)
    Keys.onRightPressed: if (currentIndex < segments.length - 1) activated(currentIndex + 1)

    FocusRing {
        visible: control.activeFocus
    }

    Row {
        id: row

        anchors.centerIn: parent

        Repeater {
            model: control.segments

            T.AbstractButton {
                id: segment

                required property int index
                required property var modelData
                readonly property SegmentedSwitch owner: parent?.parent as SegmentedSwitch
                readonly property bool isCurrent: index === owner?.currentIndex

                objectName: "segment" + index
                implicitWidth: 36
                implicitHeight: Theme.controlHeight - 4
                focusPolicy: Qt.NoFocus
                Accessible.role: Accessible.RadioButton
                Accessible.name: modelData.text
                Accessible.checked: isCurrent
                onClicked: owner.activated(index)

                contentItem: Item {
                    Icon {
                        anchors.centerIn: parent
                        name: segment.modelData.icon
                        color: segment.isCurrent ? Theme.accentText : Theme.secondaryText
                        size: 18
                    }
                }
                background: Rectangle {
                    radius: Theme.smallRadius
                    color: segment.isCurrent ? Theme.raised : segment.hovered ? Theme.hover : "transparent"
                }

                LazyToolTip {
                    isWanted: segment.hovered
                    text: segment.modelData.text
                }
            }
        }
    }
}
