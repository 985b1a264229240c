import QtQuick
import Tolvane.Components

Ground {
    height: 420

    ConfirmDialog {
        isShown: true
        title: "Quit “Player”?"
        text: "Changes that were not saved are lost."
        confirmText: "Quit"
        isDestructive: true
    }
}
