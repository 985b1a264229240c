import QtQuick
import QtQuick.Layouts
import Tolvane.Components

/// One part of the settings under its title.
ColumnLayout {
    id: section

    required property string title
    default property alias content: inner.data

    Layout.fillWidth: true
    spacing: Theme.spacing

    PlainLabel {
        text: section.title
        font.pixelSize: Theme.titleText
        font.weight: Font.DemiBold
        Accessible.role: Accessible.Heading
    }
    Rectangle {
        Layout.fillWidth: true
        implicitHeight: inner.implicitHeight + 2 * Theme.wideSpacing
        radius: Theme.cardRadius
        color: Theme.surface
        border.color: Theme.line

        ColumnLayout {
            id: inner

            anchors.fill: parent
            anchors.margins: Theme.wideSpacing
            spacing: Theme.spacing
        }
    }
}
