import QtQuick

Rectangle {
    color: Theme.window
}
