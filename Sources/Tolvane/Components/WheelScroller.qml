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

    target: null
    // What has nothing to scroll leaves the wheel to what it lies in.
    blocking: flickable.contentHeight > flickable.height || flickable.contentWidth > flickable.width
    acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
    onWheel: event => {
        const view = flickable;
        const isPrecise = event.pixelDelta.y !== 0 || event.pixelDelta.x !== 0;
        const down = isPrecise ? event.pixelDelta.y : event.angleDelta.y / 120 * notch;
        const right = isPrecise ? event.pixelDelta.x : event.angleDelta.x / 120 * notch;
        view.contentY = moved(view.contentY, down, view.originY - view.topMargin,
                              view.contentHeight + view.topMargin + view.bottomMargin, view.height);
        view.contentX = moved(view.contentX, right, view.originX - view.leftMargin,
                              view.contentWidth + view.leftMargin + view.rightMargin, view.width);
    }
}
