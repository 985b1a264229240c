import QtQuick
import QtQuick.Layouts
import Tolvane.Components

/// What a screen is, what it works on, and, as children, what can be done.
Item {
    id: toolbar

    required property string title
    required property string path
    default property alias content: row.data

    implicitHeight: Theme.toolbarHeight + Theme.spacing

    RowLayout {
        id: row

        anchors.fill: parent
        anchors.leftMargin: Theme.pageMargin
        anchors.rightMargin: Theme.pageMargin
        spacing: Theme.spacing

        ColumnLayout {
            Layout.minimumWidth: title.implicitWidth
            Layout.preferredWidth: 1000
            spacing: 0

            PlainLabel {
                id: title

                Layout.fillWidth: true
                text: toolbar.title
                font.pixelSize: Theme.titleText
                font.weight: Font.DemiBold
                Accessible.role: Accessible.Heading
            }
            ElidedLabel {
                objectName: "scannedPath"
                Layout.fillWidth: true
                visible: text !== ""
                text: toolbar.path
                color: Theme.secondaryText
                font.pixelSize: Theme.smallText
                elide: Text.ElideMiddle
            }
        }
    }
}
