import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// One folder on offer.
MouseArea {
    id: row

    required property int index
    required property string name
    required property string pathText
    required property string iconName
    readonly property var list: ListView.view
    readonly property bool isCurrent: ListView.isCurrentItem

    objectName: "folderRow" + index
    width: list?.width ?? 0
    height: Theme.rowHeight
    hoverEnabled: true
    Accessible.role: Accessible.ListItem
    Accessible.name: name
    Accessible.selected: isCurrent
    Accessible.onPressAction: list.chooser.open(index)
    onPressed: {
        list.forceActiveFocus(Qt.MouseFocusReason);
        list.currentIndex = index;
    }
    onDoubleClicked: list.chooser.open(index)

    Rectangle {
        anchors.fill: parent
        radius: Theme.smallRadius
        color: row.isCurrent ? Theme.accentSoft : row.containsMouse ? Theme.hover : "transparent"
    }
    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 10
        anchors.rightMargin: 14
        spacing: 10

        Icon {
            name: row.iconName
            color: row.isCurrent ? Theme.accentText : Theme.secondaryText
            size: 18
        }
        ElidedLabel {
            Layout.fillWidth: true
            text: row.name
            elide: Text.ElideMiddle
            Accessible.ignored: true
        }
    }
}
