import QtQuick
import QtQuick.Templates as T

/// A page higher than its place. What gets the focus by keyboard comes into sight, and PageUp and
/// PageDown that nothing on it takes move the page itself.
Flickable {
    id: page

    readonly property Item focused: Window.activeFocusItem

    function scrollTo(y: real) {
        contentY = Math.max(0, Math.min(y, contentHeight - height));
    }

    /// What of the page stands for `item`: itself, or what it scrolls in; null when it is not on it.
    function shown(item: Item): Item {
        let found = item;
        let place = item;
        while (place !== null && place !== contentItem) {
            found = place instanceof Flickable ? place : found;
            place = place.parent;
        }
        return place === null ? null : found;
    }

    /// Not under the pointer: what is clicked stays where it is.
    function isPointedAt(item: Item): bool {
        return pointer.hovered && item.contains(item.mapFromItem(page, pointer.point.position.x, pointer.point.position.y));
    }

    function showFocused() {
        const item = shown(focused);
        if (item === null || isPointedAt(item)) {
            return;
        }
        const top = item.mapToItem(contentItem, 0, 0).y - Theme.wideSpacing;
        const bottom = top + item.height + 2 * Theme.wideSpacing;
        if (top < contentY || bottom - top > height) {
            scrollTo(top);
        } else if (bottom > contentY + height) {
            scrollTo(bottom - height);
        }
    }

    contentWidth: width
    boundsBehavior: Flickable.StopAtBounds
    interactive: false
    clip: true
    T.ScrollBar.vertical: PlainScrollBar {}
    onFocusedChanged: showFocused()
    onContentHeightChanged: scrollTo(contentY)
    onHeightChanged: scrollTo(contentY)
    Keys.onPressed: event => {
        const step = event.key === Qt.Key_PageDown ? height : event.key === Qt.Key_PageUp ? -height : 0;
        event.accepted = step !== 0;
        scrollTo(contentY + 0.9 * step);
    }

    HoverHandler {
        id: pointer
    }
    WheelScroller {
        flickable: page
    }
}
