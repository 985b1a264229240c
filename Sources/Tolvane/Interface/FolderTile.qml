import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// One item as a tile: filled from below as far as it fills its folder.
Item {
    id: tile

    required property string nodeID
    required property string name
    required property string iconName
    required property string sizeText
    required property string shareText
    required property string itemsText
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

        Rectangle {
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            anchors.margins: ground.border.width
            height: (parent.height - 2 * ground.border.width) * tile.share
            radius: Math.min(Theme.cardRadius - ground.border.width, height / 2)
            color: Theme.accentSoft
        }
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

    ColumnLayout {
        anchors.fill: ground
        anchors.margins: 10
        anchors.topMargin: 8
        spacing: 2

        RowLayout {
            spacing: Theme.spacing

            Icon {
                name: tile.iconName
                color: Theme.secondaryText
            }
            Icon {
                visible: tile.isPurgeable
                name: "purgeable"
                color: Theme.secondaryText
                size: 16
            }
            Item {
                Layout.fillWidth: true
            }
            TriStateBox {
                objectName: "tick"
                Layout.rightMargin: -4
                focusPolicy: Qt.NoFocus
                mark: tile.tick
                text: tile.name
                onClicked: tile.ticked()
            }
        }
        ElidedLabel {
            Layout.fillWidth: true
            text: tile.name
            fullText: tile.pathText
            elide: Text.ElideMiddle
        }
        Item {
            Layout.fillHeight: true
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
            text: tile.itemsText
            color: Theme.secondaryText
            font.pixelSize: Theme.smallText
        }
    }
}
