import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// Folders that a search for a folder may begin with.
Flickable {
    id: places

    required property FolderChooser chooser

    contentHeight: column.implicitHeight
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    ScrollBar.vertical: PlainScrollBar {}
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Places")

    ColumnLayout {
        id: column

        width: places.width
        spacing: 2

        Repeater {
            model: places.chooser.places

            SidebarButton {
                required property int index
                required property string title
                required property string pathText

                objectName: "folderPlace" + index
                Layout.fillWidth: true
                text: title
                Accessible.role: Accessible.Button
                Accessible.description: pathText
            }
            onItemAdded: (index, item) => (item as SidebarButton).clicked.connect(() => places.chooser.openPlace(index))
        }
    }
}
