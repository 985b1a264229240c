import QtQuick
import QtQuick.Controls.Basic
import Tolvane.Components

/// The end of the log, to be read and copied.
Rectangle {
    id: view

    required property string text

    function showEnd(): void {
        area.cursorPosition = area.length;
        scrollTo(0, lines.contentHeight);
    }

    function scrollTo(x: real, y: real): void {
        lines.contentX = Math.max(0, Math.min(x, lines.contentWidth - lines.width));
        lines.contentY = Math.max(0, Math.min(y, lines.contentHeight - lines.height));
    }

    /// What is read or selected by keyboard stays in sight.
    function show(place: rect): void {
        scrollTo(Math.max(place.right - lines.width, Math.min(place.left, lines.contentX)),
                 Math.max(place.bottom - lines.height, Math.min(place.top, lines.contentY)));
    }

    implicitHeight: 240
    radius: Theme.radius
    color: Theme.window
    border.color: area.activeFocus ? Theme.focusRing : Theme.line
    onActiveFocusChanged: if (activeFocus) area.forceActiveFocus(Qt.TabFocusReason)

    Flickable {
        id: lines

        anchors.fill: parent
        anchors.margins: Theme.spacing
        contentWidth: area.implicitWidth
        contentHeight: area.implicitHeight
        boundsBehavior: Flickable.StopAtBounds
        interactive: false
        clip: true
        ScrollBar.vertical: PlainScrollBar {}
        ScrollBar.horizontal: PlainScrollBar {}

        TextEdit {
            id: area

            objectName: "logTail"
            width: Math.max(implicitWidth, lines.width)
            text: view.text
            textFormat: TextEdit.PlainText
            readOnly: true
            selectByMouse: true
            selectByKeyboard: true
            activeFocusOnTab: true
            color: Theme.text
            selectionColor: Theme.accent
            selectedTextColor: Theme.accentInk
            font.family: "monospace"
            font.pixelSize: Theme.smallText
            Accessible.role: Accessible.StaticText
            Accessible.name: qsTr("End of the log")
            onCursorRectangleChanged: if (activeFocus) view.show(cursorRectangle)
            Keys.onPressed: event => {
                const step = event.key === Qt.Key_PageDown ? lines.height : event.key === Qt.Key_PageUp ? -lines.height : 0;
                event.accepted = step !== 0;
                view.scrollTo(lines.contentX, lines.contentY + 0.9 * step);
            }
            Keys.onTabPressed: nextItemInFocusChain().forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
        }
        WheelScroller {
            flickable: lines
        }
    }
}
