import QtQuick
import QtQuick.Controls.Basic
import Tolvane.Components

/// The end of the log, to be read and copied.
Rectangle {
    id: view

    required property string text

    function showEnd(): void {
        lines.contentY = Math.max(0, lines.contentHeight - lines.height);
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
            Keys.onTabPressed: nextItemInFocusChain().forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
        }
    }
}
