import QtQuick

/// What every line of a DataTable does, whatever it shows; reused for another row while scrolling.
MouseArea {
    id: area

    required property int index
    required property var model
    /// The DataTable; untyped, because types that name each other do not load.
    readonly property var table: ListView.view?.parent ?? null
    readonly property bool isCurrent: ListView.isCurrentItem
    /// Left free above what the row is drawn on.
    property real gap: 0
    readonly property bool isMarked: table !== null && table.selectedRole !== "" && model[table.selectedRole]

    objectName: "row" + index
    width: table?.contentWidth ?? 0
    height: table?.rowHeight ?? 0
    hoverEnabled: true
    acceptedButtons: Qt.LeftButton | Qt.RightButton
    Accessible.role: Accessible.Row
    Accessible.name: table ? model[table.accessibleRole] ?? "" : ""
    Accessible.selectable: true
    Accessible.selected: isCurrent
    Accessible.focusable: true
    Accessible.onPressAction: table.rowActivated(index)
    onPressed: table.take(index)
    onClicked: mouse => mouse.button === Qt.RightButton ? table.askForMenu(index, area, mouse.x, mouse.y)
                                                        : table.rowClicked(index, mouse.modifiers)
    onDoubleClicked: mouse => {
        if (mouse.button === Qt.LeftButton) {
            table.rowActivated(index);
        }
    }

    Rectangle {
        anchors.fill: parent
        anchors.topMargin: area.gap
        anchors.leftMargin: 4
        anchors.rightMargin: 4
        radius: Theme.smallRadius
        color: area.isCurrent || area.isMarked ? Theme.accentSoft : area.containsMouse ? Theme.hover : "transparent"
        border.width: area.isCurrent && area.table?.hasKeyboard ? 2 : 0
        border.color: Theme.focusRing
    }
}
