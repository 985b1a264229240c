import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// What just happened, and what the result on screen is not.
ColumnLayout {
    id: banners

    required property ScanViewModel controller
    readonly property bool isResult: controller.stage === Ui.Result

    Layout.fillHeight: false
    spacing: 0

    ScreenBanner {
        objectName: "banner"
        text: banners.controller.banner
        actionText: banners.controller.removal.canUndo ? qsTr("Undo") : ""
        onActionTriggered: banners.controller.undoRemoval()
        onDismissed: banners.controller.dismissBanner()
    }
    ScreenBanner {
        objectName: "partialBanner"
        visible: text !== "" && banners.isResult
        kind: Banner.Warning
        text: banners.controller.isPartial ? qsTr("The scan was cancelled: this is only what had been read until then.") : ""
        actionText: qsTr("Scan again")
        isDismissible: false
        onActionTriggered: banners.controller.scanAgain()
    }
    ScreenBanner {
        objectName: "lockedBanner"
        visible: text !== "" && banners.isResult
        text: banners.controller.lockedText
        actionText: banners.controller.canGoBack ? qsTr("Scan this folder") : ""
        isDismissible: false
        onActionTriggered: banners.controller.scanFolderOnScreen()
    }
}
