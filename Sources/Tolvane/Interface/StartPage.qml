import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// What a screen shows before its first scan: what it is for, and places to begin with.
Item {
    id: page

    required property string iconName
    required property string title
    required property string text
    required property string actionText
    /// What will be touched.
    required property string note
    /// Roles: "title", "iconName", "pathText", "isAvailable".
    required property Records places
    /// Offered after the places; empty: none.
    property string lastPath
    /// Stands above the button.
    property alias settings: purpose.content

    signal actionTriggered()
    signal placeChosen(int row)
    signal lastChosen()

    Flickable {
        anchors.fill: parent
        contentWidth: width
        contentHeight: Math.max(height, column.implicitHeight + 2 * Theme.pageMargin)
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        ScrollBar.vertical: PlainScrollBar {}

        ColumnLayout {
            id: column

            /// Three in a line, or fewer that fill it.
            readonly property int lineLength: Math.min(places.count + (page.lastPath === "" ? 0 : 1), 3)
            readonly property real cardWidth: (width - (lineLength - 1) * Theme.wideSpacing) / lineLength

            anchors.centerIn: parent
            width: Math.min(parent.width - 2 * Theme.pageMargin, 704)
            spacing: Theme.pageMargin

            EmptyState {
                id: purpose

                Layout.fillWidth: true
                iconName: page.iconName
                title: page.title
                text: page.text
                actionText: page.actionText
                note: page.note
                onActionTriggered: page.actionTriggered()
            }
            Flow {
                Layout.fillWidth: true
                spacing: Theme.wideSpacing

                Repeater {
                    id: places

                    model: page.places

                    Card {
                        required property int index
                        required property string title
                        required property string pathText
                        required property bool isAvailable

                        objectName: "quickPlace" + index
                        enabled: isAvailable
                        text: title
                        note: isAvailable ? pathText : qsTr("Not there")
                    }
                    onItemAdded: (index, item) => {
                        const card = item as Card;
                        card.width = Qt.binding(() => column.cardWidth);
                        card.clicked.connect(() => page.placeChosen(index));
                    }
                }
                Card {
                    objectName: "lastScan"
                    visible: page.lastPath !== ""
                    width: column.cardWidth
                    iconName: "document-open-recent"
                    text: qsTr("Last scanned")
                    note: page.lastPath
                    onClicked: page.lastChosen()
                }
            }
        }
    }
}
