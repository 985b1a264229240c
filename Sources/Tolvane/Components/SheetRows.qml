import QtQuick.Layouts

/// The lines of a sheet, which scroll where there is no room for all of them.
DataTable {
    Layout.fillWidth: true
    Layout.fillHeight: true
    // The rows stand within it, beside the scroll bar.
    Layout.leftMargin: -10
    Layout.rightMargin: -10
    Layout.preferredHeight: wholeHeight
    Layout.minimumHeight: Math.min(wholeHeight, 96)
    isActivatable: false
    currentIndex: -1
}
