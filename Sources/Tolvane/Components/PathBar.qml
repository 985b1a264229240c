import QtQuick
import QtQml.Models

/// The folders from the scanned one down to the one on screen. Where there is no room, those after
/// the first hide behind "…", which lists them. One tab stop; Left and Right move inside.
Item {
    id: bar

    /// Roles: `name`, `pathText` (the tooltip).
    required property var model
    readonly property int count: crumbs.count
    /// The first crumb after the hidden ones; 1 when none is hidden.
    readonly property int firstShown: {
        const overflowWidth = 36;
        let left = width - widthOf(0);
        let first = count;
        while (first > 1) {
            const needed = widthOf(first - 1) + (first > 2 ? overflowWidth : 0);
            if (needed > left && first < count) {
                break;
            }
            left -= widthOf(first - 1);
            --first;
        }
        return first;
    }

    signal activated(int index)

    function widthOf(index: int): real {
        const crumb = crumbs.itemAt(index) as Crumb;
        return crumb ? crumb.wantedWidth : 0;
    }

    /// Only the last crumb gives way, and the first where even that does not suffice.
    function roomFor(index: int): real {
        if (index !== count - 1 || index === 0) {
            return index === 0 ? Math.max(72, count > 1 ? width / 3 : width) : 10000;
        }
        return Math.max(72, width - Math.min(widthOf(0), roomFor(0)) - (firstShown > 1 ? 36 : 0));
    }

    function focusFrom(index: int, step: int) {
        let target = crumbs.itemAt(index + step);
        while (target && !target.visible) {
            index += step;
            target = crumbs.itemAt(index + step);
        }
        target?.forceActiveFocus(Qt.TabFocusReason);
    }

    implicitHeight: Theme.controlHeight
    implicitWidth: row.implicitWidth
    clip: true
    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Path")

    Row {
        id: row

        Repeater {
            id: crumbs

            model: bar.model
            delegate: Crumb {}
            onItemAdded: (index, item) => {
                const crumb = item as Crumb;
                crumb.clicked.connect(() => crumb.isOverflow ? menu.popup(crumb, 18, crumb.height) : bar.activated(crumb.index));
            }
        }
    }

    ContextMenu {
        id: menu

        objectName: "pathMenu"
    }

    Instantiator {
        model: Math.max(0, bar.firstShown - 1)
        delegate: ContextMenuItem {
            required property int index

            iconName: "folder"
        }
        onObjectAdded: (index, object) => {
            const entry = object as ContextMenuItem;
            entry.text = Qt.binding(() => (crumbs.itemAt(index + 1) as Crumb)?.name ?? "");
            entry.triggered.connect(() => bar.activated(index + 1));
            menu.insertItem(index, entry);
        }
        onObjectRemoved: (index, object) => menu.removeItem(object as ContextMenuItem)
    }
}
