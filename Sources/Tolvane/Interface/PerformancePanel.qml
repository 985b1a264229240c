import QtQuick
import QtQuick.Layouts
import Tolvane.Components

/// One part of the performance screen: what it is about, a summary, what can be done, and as
/// children what there is to see.
Rectangle {
    id: panel

    required property string title
    property string summary
    /// At the right of the title.
    property alias actions: actionRow.data
    default property alias content: body.data
    readonly property real contentWidth: width - 2 * Theme.wideSpacing

    Layout.fillWidth: true
    implicitHeight: column.implicitHeight + 2 * Theme.wideSpacing
    radius: Theme.cardRadius
    color: Theme.surface
    border.color: Theme.line
    Accessible.role: Accessible.Grouping
    Accessible.name: title

    ColumnLayout {
        id: column

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: Theme.wideSpacing
        spacing: Theme.spacing

        RowLayout {
            spacing: Theme.wideSpacing

            PlainLabel {
                id: heading

                Layout.minimumWidth: implicitWidth
                text: panel.title
                font.weight: Font.DemiBold
                Accessible.role: Accessible.Heading
            }
            ElidedLabel {
                objectName: "panelSummary"
                Layout.fillWidth: true
                text: panel.summary
                color: Theme.secondaryText
            }
            Row {
                id: actionRow

                spacing: Theme.spacing
            }
        }
        ColumnLayout {
            id: body

            spacing: Theme.wideSpacing
        }
    }
}
