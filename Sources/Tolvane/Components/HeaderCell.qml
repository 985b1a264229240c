import QtQuick
import QtQuick.Templates as T

/// The head of one column: a click sorts, its edge resizes; Shift with Left and Right does so
/// from the keyboard.
T.AbstractButton {
    id: control

    required property int index
    required property DataColumn modelData
    /// The DataTable; untyped, because types that name each other do not load.
    readonly property var table: parent?.parent?.parent ?? null
    readonly property bool isSorted: table !== null && modelData.sortKey >= 0 && modelData.sortKey === table.sortKey
    readonly property bool isSortable: modelData.sortKey >= 0
    /// Behind the column that fills, the left edge is the one that moves.
    readonly property bool movesLeftEdge: table !== null && index > table.fillIndex

    function resize(to: real) {
        modelData.width = Math.max(modelData.minimumWidth, to);
    }

    objectName: "header" + index
    width: table?.widthOf(modelData) ?? 0
    height: parent?.height ?? 0
    leftPadding: 10
    rightPadding: 10
    // One tab stop for the whole header.
    focusPolicy: index === 0 ? Qt.TabFocus : Qt.NoFocus
    Accessible.role: Accessible.ColumnHeader
    Accessible.name: modelData.title
    Accessible.description: !isSorted ? "" : table.isDescending ? qsTr("Sorted, largest first") : qsTr("Sorted, smallest first")
    onClicked: if (isSortable) table.sortRequested(modelData.sortKey)
    Keys.onReturnPressed: control.clicked()
    Keys.onPressed: event => {
        const step = event.key === Qt.Key_Right ? 1 : event.key === Qt.Key_Left ? -1 : 0;
        event.accepted = step !== 0;
        if (step !== 0 && event.modifiers & Qt.ShiftModifier) {
            resize(width + 16 * step);
        } else if (step !== 0) {
            table.focusHeader(index + step);
        }
    }

    contentItem: Item {
        Row {
            x: control.modelData.isFigure ? parent.width - width : 0
            height: parent.height
            spacing: 4
            layoutDirection: control.modelData.isFigure ? Qt.RightToLeft : Qt.LeftToRight

            PlainLabel {
                width: Math.min(implicitWidth, control.availableWidth - (control.isSorted ? 16 : 0))
                height: parent.height
                text: control.modelData.title
                color: control.isSorted ? Theme.text : Theme.secondaryText
                font.pixelSize: Theme.smallText
                font.weight: Font.Medium
                Accessible.ignored: true
            }
            Icon {
                anchors.verticalCenter: parent.verticalCenter
                visible: control.isSorted
                name: control.table?.isDescending ? "pan-down" : "pan-up"
                color: Theme.text
                size: 12
            }
        }
    }

    background: Rectangle {
        color: control.isSortable && control.down ? Theme.press : control.isSortable && control.hovered ? Theme.hover : "transparent"

        FocusRing {
            gap: -4
            visible: control.visualFocus
        }
    }

    MouseArea {
        property real startWidth
        property real startX

        x: control.movesLeftEdge ? -4 : control.width - 4
        width: 8
        height: parent.height
        visible: !control.modelData.fills
        cursorShape: Qt.SplitHCursor
        preventStealing: true
        // From where it began: the columns move only with the next frame, the pointer may be faster.
        onPressed: mouse => {
            startWidth = control.width;
            startX = mapToItem(control.table, mouse.x, 0).x;
        }
        onPositionChanged: mouse => {
            const moved = mapToItem(control.table, mouse.x, 0).x - startX;
            control.resize(startWidth + (control.movesLeftEdge ? -moved : moved));
        }

        Rectangle {
            anchors.centerIn: parent
            width: 1
            height: parent.height - 14
            color: Theme.line
        }
    }
}
