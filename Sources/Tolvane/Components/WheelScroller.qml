import QtQuick

/// Scrolls a Flickable by wheel and touchpad as desktops do: by what the device says, without
/// momentum of its own and without dragging by mouse. Set `interactive: false` there.
WheelHandler {
    id: handler

    required property Flickable flickable
    /// Of one notch of a wheel.
    property real notch: 3 * Theme.rowHeight

    function moved(position: real, by: real, start: real, length: real, room: real): real {
        return Math.max(start, Math.min(position - by, start + length - room));
    }

    /// Whether there was anything left to scroll.
    function scroll(view: Flickable, down: real, right: real): bool {
        const x = view.contentX;
        const y = view.contentY;
        view.contentY = moved(y, down, view.originY - view.topMargin,
                              view.contentHeight + view.topMargin + view.bottomMargin, view.height);
        view.contentX = moved(x, right, view.originX - view.leftMargin,
                              view.contentWidth + view.leftMargin + view.rightMargin, view.width);
        return view.contentX !== x || view.contentY !== y;
    }

    /// The page that the flickable is a part of, which goes on where that has come to an end.
    function around(): Flickable {
        let place = flickable.parent;
        while (place !== null && !(place as Flickable)) {
            place = place.parent;
        }
        return place as Flickable;
    }

    target: null
    // What has nothing to scroll leaves the wheel to what it lies in.
    blocking: flickable.contentHeight > flickable.height || flickable.contentWidth > flickable.width
    acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
    onWheel: event => {
        const isPrecise = event.pixelDelta.y !== 0 || event.pixelDelta.x !== 0;
        const down = isPrecise ? event.pixelDelta.y : event.angleDelta.y / 120 * notch;
        const right = isPrecise ? event.pixelDelta.x : event.angleDelta.x / 120 * notch;
        const outer = around();
        if (!scroll(flickable, down, right) && blocking && outer) {
            scroll(outer, down, right);
        }
    }
}
