import QtQuick
import QtQuick.Templates as T

/// One line to search or filter by; Esc empties it.
T.TextField {
    id: control

    implicitWidth: 220
    implicitHeight: Theme.controlHeight
    leftPadding: 34
    rightPadding: 34
    color: Theme.text
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentInk
    placeholderTextColor: Theme.secondaryText
    placeholderText: qsTr("Filter")
    verticalAlignment: TextInput.AlignVCenter
    font.family: Theme.family
    font.pixelSize: Theme.bodyText
    selectByMouse: true
    opacity: enabled ? 1 : 0.5
    Accessible.name: placeholderText
    // An Esc that has nothing to empty belongs to the screen.
    Keys.onEscapePressed: event => {
        event.accepted = text !== "";
        clear();
    }

    PlainLabel {
        x: control.leftPadding
        width: control.width - control.leftPadding - control.rightPadding
        height: control.height
        visible: control.length === 0 && control.preeditText === ""
        text: control.placeholderText
        color: control.placeholderTextColor
        Accessible.ignored: true
    }
    Icon {
        x: 9
        anchors.verticalCenter: parent.verticalCenter
        name: "edit-find"
        color: Theme.secondaryText
        size: 16
    }
    IconButton {
        objectName: "filterClear"
        anchors.right: parent.right
        anchors.rightMargin: 3
        anchors.verticalCenter: parent.verticalCenter
        implicitWidth: 26
        implicitHeight: 26
        visible: control.length > 0
        focusPolicy: Qt.NoFocus
        iconName: "window-close"
        text: qsTr("Clear")
        ink: Theme.secondaryText
        onClicked: control.clear()
    }

    background: Rectangle {
        radius: Theme.radius
        color: Theme.control
        border.width: control.activeFocus ? 2 : 1
        border.color: control.activeFocus ? Theme.focusRing : control.hovered ? Theme.secondaryText : Theme.outline
    }
}
