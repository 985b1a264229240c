import QtQuick

/// One line to search or filter by; Esc empties it.
LineField {
    id: control

    leftPadding: 34
    rightPadding: length > 0 ? 34 : 10
    placeholderText: qsTr("Filter")
    // An Esc that has nothing to empty belongs to the screen.
    Keys.onEscapePressed: event => {
        event.accepted = text !== "";
        clear();
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
}
