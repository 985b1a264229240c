import QtQuick
import QtQuick.Templates as T

/// A table over a list model whose roles are the cells' texts. Made for long lists: only the rows in
/// sight exist. It decides nothing: sorting, ticking and opening are asked for by signals.
FocusScope {
    id: table

    required property var model
    /// Without any there is no header.
    default property list<DataColumn> columns
    /// A TableRow; by default one cell for each column.
    property Component rowDelegate: DataRow {}
    property real rowHeight: Theme.rowHeight
    property alias currentIndex: list.currentIndex
    readonly property alias count: list.count
    /// The `sortKey` of the column that the rows are sorted by.
    property int sortKey: -1
    property bool isDescending: false
    /// A boolean role that marks rows besides the current one; empty: none.
    property string selectedRole
    /// The role by which rows that stand together form a section, which it heads; empty: none.
    property string sectionRole
    /// The role that tells the whole row to assistive tools.
    property string accessibleRole: "accessibleText"
    property string accessibleName
    readonly property bool hasKeyboard: list.activeFocus && usesKeyboard
    property bool usesKeyboard: true
    /// Whether Return asks to open a row; otherwise the key is left to what the table lies in.
    property bool isActivatable: true
    /// With all rows in sight.
    readonly property real wholeHeight: header.height + list.contentHeight + list.topMargin + list.bottomMargin
    /// Of the rows, beside the scroll bar.
    readonly property real contentWidth: Math.max(width - 10, fixedWidth)
    readonly property int fillIndex: {
        let index = 0;
        while (index < columns.length && !columns[index].fills) {
            ++index;
        }
        return index;
    }
    readonly property real fixedWidth: {
        let sum = 0;
        for (let i = 0; i < columns.length; ++i) {
            sum += columns[i].fills ? columns[i].minimumWidth : columns[i].width;
        }
        return sum;
    }

    signal sortRequested(int key)
    signal rowClicked(int row, int modifiers)
    /// Double click or Return.
    signal rowActivated(int row)
    /// Space.
    signal rowToggled(int row)
    /// Right button, Menu or Shift+F10; the point is the table's.
    signal contextMenuRequested(int row, real x, real y)

    function widthOf(column: DataColumn): real {
        return column.fills ? column.minimumWidth + contentWidth - fixedWidth : column.width;
    }

    /// Makes `row` the current one and shows it.
    function showRow(row: int) {
        list.currentIndex = row;
        list.positionViewAtIndex(row, ListView.Contain);
    }

    function take(row: int) {
        usesKeyboard = false;
        list.forceActiveFocus(Qt.MouseFocusReason);
        list.currentIndex = row;
    }

    function askForMenu(row: int, item: Item, x: real, y: real) {
        const point = table.mapFromItem(item, x, y);
        contextMenuRequested(row, point.x, point.y);
    }

    function focusHeader(index: int) {
        heads.itemAt(index)?.forceActiveFocus(Qt.TabFocusReason);
    }

    Rectangle {
        id: header

        width: table.width
        height: visible ? 30 : 0
        visible: table.columns.length > 0
        color: "transparent"
        clip: true

        Row {
            x: -list.contentX
            height: parent.height

            Repeater {
                id: heads

                model: table.columns
                delegate: HeaderCell {}
            }
        }
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: 1
            color: Theme.line
        }
    }

    ListView {
        id: list

        objectName: "tableRows"
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        topMargin: 4
        bottomMargin: 4
        contentWidth: table.contentWidth
        model: table.model
        delegate: table.rowDelegate
        clip: true
        focus: true
        activeFocusOnTab: true
        reuseItems: true
        // Rows that are still being made ahead make the view complain once they are taken away.
        cacheBuffer: 0
        section.property: table.sectionRole
        section.delegate: SectionHeading {}
        interactive: false
        keyNavigationEnabled: true
        boundsBehavior: Flickable.StopAtBounds
        highlightFollowsCurrentItem: true
        highlightMoveDuration: 0
        T.ScrollBar.vertical: PlainScrollBar {}
        T.ScrollBar.horizontal: PlainScrollBar {}
        Accessible.role: Accessible.Table
        Accessible.name: table.accessibleName
        onActiveFocusChanged: if (activeFocus && currentIndex < 0 && count > 0) currentIndex = 0
        Keys.onPressed: event => table.handle(event)

        WheelScroller {
            flickable: list
        }
    }

    function handle(event: KeyEvent) {
        const page = Math.max(1, Math.floor(list.height / rowHeight) - 1);
        const steps = new Map([[Qt.Key_PageUp, -page], [Qt.Key_PageDown, page], [Qt.Key_Home, -count], [Qt.Key_End, count]]);
        const row = list.currentIndex;
        usesKeyboard = true;
        if (count === 0) {
            return;
        }
        if (steps.has(event.key)) {
            showRow(Math.max(0, Math.min(row + steps.get(event.key), count - 1)));
            event.accepted = true;
        } else if (isActivatable && row >= 0 && (event.key === Qt.Key_Return || event.key === Qt.Key_Enter)) {
            rowActivated(row);
            event.accepted = true;
        } else if (row >= 0 && event.key === Qt.Key_Space) {
            rowToggled(row);
            event.accepted = true;
        } else if (row >= 0 && (event.key === Qt.Key_Menu || event.key === Qt.Key_F10 && event.modifiers & Qt.ShiftModifier)) {
            askForMenu(row, list.currentItem, 24, rowHeight);
            event.accepted = true;
        }
    }
}
