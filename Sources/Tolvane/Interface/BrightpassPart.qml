import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// One part of what could be reclaimed, and its list; each line leads to where it can be.
Rectangle {
    id: part

    required property string title
    required property string figure
    required property string summary
    /// What choosing a line does.
    required property string hint
    required property Records rows

    signal rowChosen(int row)

    Layout.fillWidth: true
    Layout.fillHeight: true
    Layout.preferredWidth: 1
    radius: Theme.cardRadius
    color: Theme.surface
    border.color: Theme.line

    ColumnLayout {
        anchors.fill: parent
        anchors.topMargin: Theme.wideSpacing
        anchors.bottomMargin: Theme.spacing
        spacing: 0

        RowLayout {
            Layout.leftMargin: Theme.wideSpacing
            // As the rows, which end beside the scroll bar.
            Layout.rightMargin: Theme.pageMargin

            ElidedLabel {
                Layout.fillWidth: true
                text: part.title
                font.weight: Font.DemiBold
                Accessible.role: Accessible.Heading
            }
            FigureLabel {
                objectName: "partFigure"
                text: part.figure
                font.weight: Font.DemiBold
            }
        }
        ElidedLabel {
            objectName: "partSummary"
            Layout.fillWidth: true
            Layout.leftMargin: Theme.wideSpacing
            Layout.rightMargin: Theme.wideSpacing
            Layout.bottomMargin: Theme.spacing
            text: part.summary
            color: Theme.secondaryText
            font.pixelSize: Theme.smallText
        }
        DataTable {
            objectName: "partRows"
            Layout.fillWidth: true
            Layout.fillHeight: true
            // Without rows the focus would not be seen.
            enabled: count > 0
            model: part.rows
            rowHeight: 52
            rowDelegate: BrightpassRow {}
            accessibleName: part.title
            onRowClicked: row => part.rowChosen(row)
            onRowActivated: row => part.rowChosen(row)
        }
        PlainLabel {
            Layout.fillWidth: true
            Layout.margins: Theme.spacing
            Layout.leftMargin: Theme.wideSpacing
            visible: part.rows.count > 0
            text: part.hint
            color: Theme.secondaryText
            font.pixelSize: Theme.smallText
            wrapMode: Text.Wrap
        }
    }
}
