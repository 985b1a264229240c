import QtQuick
import QtQuick.Templates as T

T.MenuSeparator {
    implicitWidth: 224
    implicitHeight: 9
    verticalPadding: Theme.halfSpacing

    contentItem: Rectangle {
        implicitHeight: 1
        color: Theme.line
    }
}
