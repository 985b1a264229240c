import QtQuick
import Tolvane.Components

/// Takes folders that are dropped on the screen.
DropArea {
    id: drop

    /// What will come of it.
    required property string text

    signal foldersDropped(var urls)

    keys: ["text/uri-list"]
    onDropped: event => {
        foldersDropped(event.urls);
        event.accept(Qt.CopyAction);
    }

    Rectangle {
        anchors.fill: parent
        anchors.margins: Theme.spacing
        visible: drop.containsDrag
        radius: Theme.cardRadius
        color: Theme.accentSoft
        opacity: 0.92
        border.width: 2
        border.color: Theme.accent

        PlainLabel {
            anchors.centerIn: parent
            text: drop.text
            font.pixelSize: Theme.titleText
        }
    }
}
