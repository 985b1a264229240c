import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// Totals of the folder on screen, what was not read, and what is ticked. Its height never changes.
Item {
    id: footer

    required property ScanViewModel controller

    implicitHeight: Theme.toolbarHeight

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.pageMargin
        anchors.rightMargin: Theme.pageMargin
        spacing: Theme.wideSpacing

        FolderProgress {
            Layout.fillWidth: true
            visible: footer.controller.isLoadingFolder
            controller: footer.controller
        }
        ColumnLayout {
            visible: !footer.controller.isLoadingFolder
            spacing: 0

            ElidedLabel {
                objectName: "folderText"
                Layout.fillWidth: true
                text: footer.controller.folderText
            }
            ElidedLabel {
                objectName: "notCountedText"
                Layout.fillWidth: true
                text: footer.controller.elapsedText + (footer.controller.notCountedText === "" ? "" : " · " + footer.controller.notCountedText)
                color: Theme.secondaryText
                font.pixelSize: Theme.smallText
            }
        }
        FooterLink {
            objectName: "showFailures"
            visible: text !== ""
            iconName: "dialog-warning"
            ink: Theme.warningText
            text: footer.controller.failuresText
            onClicked: footer.controller.openFailures()
        }
        FooterLink {
            objectName: "showPurgeable"
            // In a narrow window the totals and what is ticked come first.
            visible: text !== "" && (footer.width >= 720 || footer.controller.selectionText === "")
            iconName: "purgeable"
            text: footer.controller.purgeableText
            onClicked: footer.controller.openPurgeable()
        }
        SelectionActions {
            text: footer.controller.selectionText
            canReview: footer.controller.lockedText === "" && !footer.controller.removal.isRemoving
            onClearRequested: footer.controller.clearSelection()
            onReviewRequested: footer.controller.prepareReview()
        }
    }
}
