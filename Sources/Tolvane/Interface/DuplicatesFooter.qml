import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// What was looked at and what was not, and what is ticked. Its height never changes.
Item {
    id: footer

    required property DuplicatesViewModel controller
    /// What a person should know of the ticks; takes the place of what was left out.
    readonly property string remark: controller.selectionWarning !== "" ? controller.selectionWarning
        : controller.rows.hiddenTicksText

    /// Without groups the page itself says what was looked at.
    readonly property bool hasGroups: controller.hasGroups

    implicitHeight: Theme.toolbarHeight

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.pageMargin
        anchors.rightMargin: Theme.pageMargin
        spacing: Theme.wideSpacing

        ColumnLayout {
            spacing: 0

            ElidedLabel {
                objectName: "checkedText"
                Layout.fillWidth: true
                text: footer.hasGroups ? footer.controller.checkedText + " · " + footer.controller.elapsedText : footer.controller.elapsedText
            }
            RowLayout {
                Layout.fillHeight: false
                spacing: 6

                Icon {
                    visible: footer.remark !== ""
                    name: "dialog-warning"
                    color: Theme.warningText
                    size: 14
                }
                ElidedLabel {
                    objectName: "leftOutText"
                    visible: text !== ""
                    Layout.fillWidth: true
                    text: footer.remark !== "" ? footer.remark : footer.hasGroups ? footer.controller.leftOutText : ""
                    color: footer.remark === "" ? Theme.secondaryText : Theme.warningText
                    font.pixelSize: Theme.smallText
                }
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
        SelectionActions {
            text: footer.controller.selectionText
            canReview: footer.controller.lockedText === "" && !footer.controller.isWorking
            onClearRequested: footer.controller.clearTicks()
            onReviewRequested: footer.controller.prepareReview()
        }
    }
}
