import QtQuick
import Tolvane
import Tolvane.Components

/// Why there is no item to see.
EmptyState {
    id: state

    required property ScanViewModel controller
    readonly property FolderModel folder: controller.folder
    readonly property bool isFiltered: folder.filter !== ""

    objectName: "nothingHere"
    iconName: isFiltered ? "edit-find" : "folder-open"
    title: isFiltered ? qsTr("No item has such a name") : folder.isEmpty ? qsTr("This folder is empty") : qsTr("Only small items lie here")
    text: isFiltered ? qsTr("Nothing in this folder is called \"%1\".").arg(folder.filter)
        : folder.isEmpty ? qsTr("There is nothing in it that takes room.") : folder.hiddenText
    actionText: isFiltered ? qsTr("Show all items") : folder.isEmpty ? "" : qsTr("Rescan in detail")
    onActionTriggered: isFiltered ? folder.setFilter("") : controller.rescanInDetail()
}
