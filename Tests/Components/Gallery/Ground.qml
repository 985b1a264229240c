import QtQuick
import Tolvane.Components

Rectangle {
    property bool isDark
    default property alias content: column.data

    width: 760
    height: column.height + 48
    color: Theme.window
    onIsDarkChanged: Theme.isDark = isDark
    Component.onCompleted: Theme.isDark = isDark

    Column {
        id: column

        x: 24
        y: 24
        width: parent.width - 48
        spacing: 16
    }
}
