import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// Which application is chosen, and what there is to know of it.
RowLayout {
    id: header

    required property UninstallerViewModel controller
    readonly property AppDetail detail: controller.detail

    spacing: Theme.wideSpacing

    ApplicationIcon {
        Layout.alignment: Qt.AlignTop
        iconKey: header.detail.iconKey
        size: 48
    }
    ColumnLayout {
        spacing: 2

        RowLayout {
            spacing: Theme.spacing

            ElidedLabel {
                objectName: "appName"
                Layout.fillWidth: true
                text: header.detail.name
                font.pixelSize: Theme.titleText
                font.weight: Font.DemiBold
                Accessible.role: Accessible.Heading
            }
            FigureLabel {
                objectName: "appSize"
                text: header.detail.sizeText
                font.weight: Font.DemiBold
            }
        }
        ElidedLabel {
            objectName: "appIdentifier"
            Layout.fillWidth: true
            text: header.detail.identityText
            color: Theme.secondaryText
            elide: Text.ElideMiddle
        }
        RowLayout {
            spacing: Theme.halfSpacing

            ElidedLabel {
                objectName: "appPath"
                Layout.fillWidth: true
                text: header.detail.pathText
                color: Theme.secondaryText
                font.pixelSize: Theme.smallText
                elide: Text.ElideMiddle
            }
            IconButton {
                objectName: "revealApp"
                iconName: "folder-open"
                text: qsTr("Show in file manager")
                onClicked: header.controller.revealApp(header.detail.appID)
            }
            IconButton {
                objectName: "copyAppPath"
                iconName: "edit-copy"
                text: qsTr("Copy path")
                onClicked: header.controller.copyAppPath(header.detail.appID)
            }
        }
        ElidedLabel {
            objectName: "leftoversText"
            Layout.fillWidth: true
            text: header.detail.leftoversText
            font.weight: Font.Medium
        }
        RowLayout {
            visible: header.detail.othersText !== ""
            spacing: 6

            Icon {
                name: "dialog-warning"
                color: Theme.warningText
                size: 14
            }
            ElidedLabel {
                objectName: "othersText"
                Layout.fillWidth: true
                text: header.detail.othersText
                color: Theme.warningText
                font.pixelSize: Theme.smallText
            }
        }
    }
}
