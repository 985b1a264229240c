import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// The modules, and beneath them how full the system's disk is.
Rectangle {
    id: sidebar

    required property Records modules
    required property int currentModule
    required property SystemDisk disk

    signal moduleChosen(int row)
    signal settingsRequested()
    signal shortcutsRequested()

    implicitWidth: 208
    color: Theme.sidebar
    Accessible.role: Accessible.PageTabList
    Accessible.name: qsTr("Modules")

    Rectangle {
        anchors.right: parent.right
        width: 1
        height: parent.height
        color: Theme.line
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 12
        anchors.topMargin: Theme.wideSpacing
        spacing: 2

        Repeater {
            model: sidebar.modules

            SidebarButton {
                required property int index
                required property string title

                objectName: "module" + index
                Layout.fillWidth: true
                text: title
            }
            onItemAdded: (index, item) => {
                const button = item as SidebarButton;
                button.isCurrent = Qt.binding(() => index === sidebar.currentModule);
                button.clicked.connect(() => sidebar.moduleChosen(index));
            }
        }
        Item {
            Layout.fillHeight: true
        }
        ColumnLayout {
            Layout.leftMargin: Theme.spacing
            Layout.rightMargin: Theme.spacing
            Layout.bottomMargin: Theme.spacing
            visible: sidebar.disk.text !== ""
            spacing: 6

            PlainLabel {
                text: qsTr("System disk")
                color: Theme.secondaryText
                font.pixelSize: Theme.smallText
            }
            SizeBar {
                Layout.fillWidth: true
                share: sidebar.disk.usedFraction
            }
            ElidedLabel {
                objectName: "diskText"
                Layout.fillWidth: true
                text: sidebar.disk.text
                color: Theme.secondaryText
                font.pixelSize: Theme.smallText
            }
        }
        SidebarButton {
            objectName: "showSettings"
            Layout.fillWidth: true
            iconName: "preferences-system"
            text: qsTr("Settings")
            onClicked: sidebar.settingsRequested()
        }
        SidebarButton {
            objectName: "showShortcuts"
            Layout.fillWidth: true
            iconName: "input-keyboard"
            text: qsTr("Shortcuts")
            onClicked: sidebar.shortcutsRequested()
        }
    }
}
