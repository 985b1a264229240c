import QtQuick
import QtQuick.Layouts

/// The place of one module: its screen is made when it is shown for the first time, and then stays.
Loader {
    id: page

    required property url screen
    required property QtObject controller
    readonly property bool isCurrent: StackLayout.isCurrentItem

    function load(): void {
        if (isCurrent && status === Loader.Null) {
            setSource(screen, { controller: controller });
        }
    }

    focus: isCurrent
    onIsCurrentChanged: load()
    Component.onCompleted: load()
}
