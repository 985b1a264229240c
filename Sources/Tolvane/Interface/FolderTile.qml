import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// One item as a tile: its picture is filled as far as the item fills its folder.
Item {
    id: tile

    required property string nodeID
    required property string name
    required property string iconName
    required property string sizeText
    required property string shareText
    required property string itemsText
    required property string modifiedText
    required property string pathText
    required property string accessibleText
    required property real share
    required property int tick
    required property bool isPurgeable
    property bool isFocused: false
    property bool isInspected: false

    signal taken()
    signal chosen(bool isAdded)
    signal ticked()
    signal opened()
    signal menuRequested(real x, real y)

    Accessible.role: Accessible.ListItem
    Accessible.name: accessibleText
    Accessible.selected: tick === Ui.All
    Accessible.onPressAction: opened()

    Rectangle {
        id: ground

        anchors.fill: parent
        anchors.margins: 3
        radius: Theme.cardRadius
        color: Theme.surface
        border.width: tile.isInspected || tile.tick === Ui.All ? 2 : 1
        border.color: tile.isInspected || tile.tick === Ui.All ? Theme.accent : pointer.hovered ? Theme.outline : Theme.line

        FocusRing {
            radius: Theme.cardRadius + gap
            gap: 0
            visible: tile.isFocused
        }
    }

    HoverHandler {
        id: pointer
    }
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        onPressed: tile.taken()
        onClicked: event => event.button === Qt.RightButton ? tile.menuRequested(event.x, event.y)
                                                            : tile.chosen(event.modifiers & Qt.ControlModifier)
        onDoubleClicked: event => {
            if (event.button === Qt.LeftButton) {
                tile.opened();
            }
        }
    }

    Rectangle {
        id: picture

        anchors.left: ground.left
        anchors.right: ground.right
        anchors.top: ground.top
        anchors.margins: 6
        height: 40
        radius: Theme.radius
        color: Theme.window

        Rectangle {
            width: tile.share > 0 ? Math.max(3, parent.width * tile.share) : 0
            height: parent.height
            radius: Math.min(Theme.radius, width / 2)
            color: Theme.shareBar
            opacity: 0.45
        }
        Icon {
            anchors.left: parent.left
            anchors.leftMargin: Theme.spacing
            anchors.verticalCenter: parent.verticalCenter
            name: tile.iconName
        }
        Icon {
            anchors.right: box.left
            anchors.rightMargin: 2
            anchors.verticalCenter: parent.verticalCenter
            visible: tile.isPurgeable
            name: "purgeable"
            size: 16
        }
        TriStateBox {
            id: box

            objectName: "tick"
            anchors.right: parent.right
            anchors.rightMargin: 4
            anchors.verticalCenter: parent.verticalCenter
            focusPolicy: Qt.NoFocus
            mark: tile.tick
            text: tile.name
            onClicked: tile.ticked()
        }
    }

    ColumnLayout {
        anchors.left: ground.left
        anchors.right: ground.right
        anchors.top: picture.bottom
        anchors.bottom: ground.bottom
        anchors.margins: 10
        anchors.topMargin: 6
        anchors.bottomMargin: Theme.spacing
        spacing: 2

        ElidedLabel {
            Layout.fillWidth: true
            text: tile.name
            fullText: tile.pathText
            elide: Text.ElideMiddle
            maximumLineCount: 1
        }
        RowLayout {
            spacing: Theme.spacing

            PlainLabel {
                Layout.fillWidth: true
                text: tile.sizeText
                font.weight: Font.DemiBold
            }
            FigureLabel {
                text: tile.shareText
                font.pixelSize: Theme.smallText
            }
        }
        PlainLabel {
            Layout.fillWidth: true
            text: tile.itemsText === "" ? tile.modifiedText : tile.itemsText
            color: Theme.secondaryText
            font.pixelSize: Theme.smallText
        }
        Item {
            Layout.fillHeight: true
        }
    }
}
