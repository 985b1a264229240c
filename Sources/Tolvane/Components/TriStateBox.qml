import QtQuick
import QtQuick.Templates as T

/// Shows whether an item is ticked; `clicked()` asks the owner to change that, the box never does so
/// by itself. Space works while it has the focus.
T.AbstractButton {
    id: control

    /// Included: inside a ticked folder, so it goes along and cannot be ticked alone.
    enum Mark { None, Partial, All, Included }

    required property int mark
    readonly property bool isTickable: mark !== TriStateBox.Included
    readonly property bool isFilled: mark === TriStateBox.Partial || mark === TriStateBox.All

    implicitWidth: 28
    implicitHeight: 28
    enabled: isTickable
    Accessible.role: Accessible.CheckBox
    Accessible.name: text
    Accessible.description: isTickable ? "" : qsTr("Included with its folder")
    Accessible.checkable: isTickable
    Accessible.checked: mark === TriStateBox.All || mark === TriStateBox.Included
    Accessible.checkStateMixed: mark === TriStateBox.Partial
    Accessible.onToggleAction: control.clicked()

    contentItem: Item {
        Rectangle {
            anchors.centerIn: parent
            width: 18
            height: 18
            radius: Theme.smallRadius
            color: control.isFilled ? (control.down ? Theme.accentPressed : control.hovered ? Theme.accentHovered : Theme.accent)
                : !control.isTickable ? Theme.track
                : control.down ? Theme.controlPressed : control.hovered ? Theme.controlHovered : Theme.control
            border.width: control.isFilled || !control.isTickable ? 0 : 1
            border.color: control.hovered ? Theme.accentText : Theme.outline

            Icon {
                anchors.centerIn: parent
                visible: control.mark === TriStateBox.All || control.mark === TriStateBox.Included
                name: "object-select"
                color: control.isTickable ? Theme.accentInk : Theme.secondaryText
                size: 14
            }
            Rectangle {
                anchors.centerIn: parent
                visible: control.mark === TriStateBox.Partial
                width: 8
                height: 2
                radius: 1
                color: Theme.accentInk
            }
            FocusRing {
                visible: control.visualFocus
            }
        }
    }
}
