import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// One figure, what it is made of, and the ways to the modules that reclaim it.
Item {
    id: page

    required property BrightpassViewModel controller

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        ColumnLayout {
            Layout.fillHeight: false
            Layout.leftMargin: Theme.pageMargin
            Layout.rightMargin: Theme.pageMargin
            Layout.bottomMargin: Theme.wideSpacing
            spacing: Theme.spacing

            PlainLabel {
                text: qsTr("Up to")
                color: Theme.secondaryText
            }
            FigureLabel {
                objectName: "reclaimable"
                text: page.controller.totalText
                font.pixelSize: Theme.heroText
                font.weight: Font.DemiBold
                Accessible.name: page.controller.headline
            }
            PlainLabel {
                Layout.fillWidth: true
                text: qsTr("can be reclaimed. The parts can overlap: what lies in two of them counts twice.")
                color: Theme.secondaryText
                wrapMode: Text.Wrap
            }
            StackedBar {
                Layout.fillWidth: true
                Layout.topMargin: Theme.spacing
                model: page.controller.parts
            }
        }
        RowLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.leftMargin: Theme.pageMargin
            Layout.rightMargin: Theme.pageMargin
            spacing: Theme.wideSpacing

            BrightpassPart {
                objectName: "junkPart"
                title: qsTr("Junk")
                figure: page.controller.junkText
                summary: qsTr("Caches, logs, what was thrown away")
                hint: qsTr("Choose one to see it in Space Analysis")
                rows: page.controller.junk
                onRowChosen: row => page.controller.showJunk(row)
            }
            BrightpassPart {
                objectName: "appsPart"
                title: qsTr("Leftovers")
                figure: page.controller.leftoverText
                summary: page.controller.appsSummary
                hint: qsTr("Choose one to see it in the Uninstaller")
                rows: page.controller.apps
                onRowChosen: row => page.controller.showApp(row)
            }
            BrightpassPart {
                objectName: "duplicatesPart"
                title: qsTr("Duplicates")
                figure: page.controller.duplicateText
                summary: page.controller.duplicatesSummary
                hint: qsTr("Choose one to see them in Duplicates")
                rows: page.controller.duplicates
                onRowChosen: page.controller.showDuplicates()
            }
        }
        // Anchors: a layout does not notice what comes to be seen while it is not itself.
        Item {
            Layout.fillWidth: true
            Layout.leftMargin: Theme.pageMargin
            Layout.rightMargin: Theme.pageMargin
            implicitHeight: Theme.toolbarHeight

            PlainLabel {
                objectName: "elapsedText"
                anchors.verticalCenter: parent.verticalCenter
                text: page.controller.elapsedText
                color: Theme.secondaryText
            }
            FooterLink {
                objectName: "showFailures"
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                visible: text !== ""
                iconName: "dialog-warning"
                ink: Theme.warningText
                text: page.controller.failuresText
                onClicked: page.controller.openFailures()
            }
        }
    }
}
