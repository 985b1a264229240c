import QtQuick
import QtQuick.Controls.Basic
import Tolvane
import Tolvane.Components

ApplicationWindow {
    id: root

    required property TolvaneApp app

    width: 1180
    height: 760
    visible: true
    title: "Tolvane"
    color: Theme.window
    Text { text: root.app.isBusy ? "busy" : "idle" }
}
