import QtQuick
import QtQuick.Controls.Basic
import Tolvane
import Tolvane.Components

/// The folders that lie in the one on screen. A click selects, a double click or Return opens.
FocusScope {
    id: view

    required property FolderChooser chooser
    /// Letters that were typed in quick succession.
    property string typed

    /// Return while no row is selected.
    signal confirmed()

    function handle(event: KeyEvent): void {
        if (event.key === Qt.Key_Backspace || event.key === Qt.Key_Up && event.modifiers & Qt.AltModifier) {
            chooser.goUp();
        } else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter) {
            if (rows.currentIndex < 0) {
                confirmed();
            } else {
                chooser.open(rows.currentIndex);
            }
        } else if (event.key === Qt.Key_Home || event.key === Qt.Key_End) {
            rows.currentIndex = event.key === Qt.Key_Home ? 0 : rows.count - 1;
        } else if (event.text > " " && !(event.modifiers & (Qt.ControlModifier | Qt.AltModifier))) {
            seek(event.text);
        } else {
            return;
        }
        event.accepted = true;
    }

    function seek(letter: string): void {
        // More letters of one name may leave the row where it is; another name begins behind it.
        const from = rows.currentIndex + (typed === "" ? 1 : 0);
        typed += letter;
        forget.restart();
        const row = chooser.rowBeginningWith(typed, from);
        if (row >= 0) {
            rows.currentIndex = row;
        }
    }

    Timer {
        id: forget

        interval: 1000
        onTriggered: view.typed = ""
    }
    Connections {
        target: view.chooser

        function onListed(row: int): void {
            rows.currentIndex = row;
            rows.positionViewAtIndex(Math.max(0, row), row < 0 ? ListView.Beginning : ListView.Center);
            view.chooser.select(row);
        }
    }

    Rectangle {
        anchors.fill: parent
        radius: Theme.radius
        color: Theme.window
        border.width: rows.activeFocus ? 2 : 1
        border.color: rows.activeFocus ? Theme.focusRing : Theme.line
    }
    ListView {
        id: rows

        readonly property FolderChooser chooser: view.chooser

        objectName: "folderRows"
        anchors.fill: parent
        anchors.margins: 4
        model: view.chooser.folders
        currentIndex: -1
        clip: true
        focus: true
        activeFocusOnTab: true
        interactive: false
        keyNavigationEnabled: true
        highlightMoveDuration: 0
        boundsBehavior: Flickable.StopAtBounds
        ScrollBar.vertical: PlainScrollBar {}
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Folders")
        onCurrentIndexChanged: view.chooser.select(currentIndex)
        Keys.onPressed: event => view.handle(event)
        delegate: FolderSheetRow {}

        WheelScroller {
            flickable: rows
        }
    }
    PlainLabel {
        objectName: "folderEmpty"
        anchors.centerIn: parent
        width: parent.width - 2 * Theme.pageMargin
        text: view.chooser.emptyText
        color: Theme.secondaryText
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
    }
}
