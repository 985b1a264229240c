import QtQuick
import QtQuick.Layouts
import Tolvane.Components

/// A banner between the toolbar and the content of a screen.
Banner {
    Layout.fillWidth: true
    Layout.leftMargin: Theme.pageMargin
    Layout.rightMargin: Theme.pageMargin
    Layout.bottomMargin: Theme.spacing
}
