import QtQuick
import QtQuick.Layouts
import Tolvane.Components

/// The filter of a screen's list, in its toolbar.
FilterField {
    id: filter

    /// Of the list; what is typed is only asked for.
    required property string filterText

    signal wanted(string text)
    /// The keyboard belongs to the list again.
    signal done()

    function take(): void {
        forceActiveFocus(Qt.ShortcutFocusReason);
        selectAll();
    }

    objectName: "filter"
    Layout.fillWidth: true
    Layout.minimumWidth: 96
    Layout.maximumWidth: 200
    placeholderText: qsTr("Filter")
    onFilterTextChanged: text = filterText
    onTextChanged: wanted(text)
    Keys.onReturnPressed: filter.done()
    Keys.onDownPressed: filter.done()
}
