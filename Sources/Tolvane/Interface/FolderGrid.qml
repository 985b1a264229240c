import QtQuick
import QtQuick.Templates as T
import Tolvane
import Tolvane.Components

/// The folder's items as tiles whose picture is their share of it.
GridView {
    id: grid

    required property ScanViewModel controller
    /// While it is not, it costs nothing.
    required property bool isShown
    /// Beside the scroll bar.
    readonly property real room: width - 12
    readonly property int columns: Math.max(1, Math.floor(room / 160))
    readonly property string inspectedID: controller.inspector.nodeID
    property bool usesKeyboard: true

    function focusItems(): void {
        focus = true;
    }

    function take(row: int): void {
        usesKeyboard = false;
        currentIndex = row;
        forceActiveFocus(Qt.MouseFocusReason);
    }

    function openMenu(item: Item, x: real, y: real): void {
        menu.openFor(currentID(), item, x, y);
    }

    function currentID(): string {
        return controller.folder.nodeIDAt(currentIndex);
    }

    cellWidth: Math.floor(room / columns)
    cellHeight: 124
    model: isShown ? controller.folder : null
    clip: true
    activeFocusOnTab: true
    keyNavigationEnabled: true
    interactive: false
    boundsBehavior: Flickable.StopAtBounds
    reuseItems: true
    highlightMoveDuration: 0
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Items")
    T.ScrollBar.vertical: PlainScrollBar {}
    onCurrentIndexChanged: if (activeFocus && usesKeyboard && currentIndex >= 0) controller.inspect(currentID())
    onActiveFocusChanged: if (activeFocus && currentIndex < 0 && count > 0) currentIndex = 0
    Keys.onPressed: event => {
        usesKeyboard = true;
        if (currentIndex < 0) {
            return;
        }
        if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter) {
            controller.open(currentID());
        } else if (event.key === Qt.Key_Space) {
            controller.select(currentID(), true);
        } else if (event.key === Qt.Key_Home) {
            currentIndex = 0;
        } else if (event.key === Qt.Key_End) {
            currentIndex = count - 1;
        } else if (event.key === Qt.Key_Menu || event.key === Qt.Key_F10 && event.modifiers & Qt.ShiftModifier) {
            openMenu(currentItem, 24, 40);
        } else {
            return;
        }
        event.accepted = true;
    }

    delegate: FolderTile {
        id: tile

        required property int index
        readonly property var view: GridView.view

        objectName: "item" + index
        width: view?.cellWidth ?? 0
        height: view?.cellHeight ?? 0
        isFocused: GridView.isCurrentItem && view.activeFocus && view.usesKeyboard
        isInspected: nodeID !== "" && nodeID === view?.inspectedID
        onTaken: view.take(index)
        onChosen: isAdded => {
            view.controller.select(nodeID, isAdded);
            view.controller.inspect(nodeID);
        }
        onTicked: view.controller.select(nodeID, true)
        onOpened: view.controller.open(nodeID)
        onMenuRequested: (x, y) => view.openMenu(tile, x, y)
    }

    WheelScroller {
        flickable: grid
    }
    ItemMenu {
        id: menu

        controller: grid.controller
    }
}
