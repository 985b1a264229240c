import QtQuick
import QtQuick.Layouts
import Tolvane.Components

/// What is ticked, at the end of a footer, and what can be done with it.
RowLayout {
    id: actions

    /// "3 items, 1.2 GB"; empty when nothing is ticked.
    required property string text
    required property bool canReview

    signal clearRequested()
    signal reviewRequested()

    Layout.fillWidth: false
    visible: text !== ""
    spacing: Theme.wideSpacing

    FigureLabel {
        objectName: "selectionText"
        text: actions.text
        font.weight: Font.Medium
    }
    PlainButton {
        objectName: "clearSelection"
        text: qsTr("Clear")
        onClicked: actions.clearRequested()
    }
    PrimaryButton {
        objectName: "review"
        enabled: actions.canReview
        iconName: "user-trash"
        text: qsTr("Review...")
        onClicked: actions.reviewRequested()
    }
}
