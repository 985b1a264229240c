import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// The window: the modules on the left, the screen of one of them beside it.
ThemedWindow {
    id: root

    required property TolvaneApp app
    required property Appearance appearance
    property bool showsShortcuts: false

    function showSettings(): void {
        if (settings.item === null) {
            settings.setSource("SettingsView.qml", { settings: root.app.settings });
        } else {
            (settings.item as SettingsView).requestActivate();
        }
    }

    width: 1180
    height: 760
    minimumWidth: 860
    minimumHeight: 560
    title: "Tolvane"

    Binding {
        target: Theme
        property: "isDark"
        value: root.appearance.isDark
    }
    Binding {
        target: Theme
        property: "reducesMotion"
        value: root.appearance.reducesMotion
    }

    RowLayout {
        anchors.fill: parent
        spacing: 0

        Sidebar {
            Layout.fillHeight: true
            modules: root.app.modules
            currentModule: root.app.currentModule
            disk: root.app.disk
            onModuleChosen: row => root.app.showModule(row)
            onSettingsRequested: root.showSettings()
            onShortcutsRequested: root.showsShortcuts = true
        }
        StackLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            currentIndex: root.app.currentModule

            Repeater {
                model: root.app.modules

                ModulePage {}
            }
        }
    }

    ShortcutsSheet {
        isShown: root.showsShortcuts
        onDismissed: root.showsShortcuts = false
    }

    // Comes when it is asked for: most runs never do.
    Loader {
        id: question
    }
    Connections {
        target: root.app.chooser

        function onIsOpenChanged(): void {
            if (root.app.chooser.isOpen) {
                question.setSource("FolderSheet.qml", { chooser: root.app.chooser });
            } else {
                question.source = "";
            }
        }
    }

    // A window of its own, made anew each time.
    Loader {
        id: settings
    }
    Connections {
        target: settings.item

        function onClosing(): void {
            settings.source = "";
        }
    }

    Shortcut {
        sequence: "Ctrl+,"
        onActivated: root.showSettings()
    }
    Shortcut {
        sequence: "Ctrl+Q"
        // Also while a sheet lies over the window.
        context: Qt.ApplicationShortcut
        onActivated: Qt.quit()
    }
    Shortcut {
        sequence: "F1"
        onActivated: root.showsShortcuts = true
    }
    Instantiator {
        model: root.app.modules

        Shortcut {
            required property int index

            sequence: "Ctrl+" + (index + 1)
        }
        onObjectAdded: (index, object) => (object as Shortcut).activated.connect(() => root.app.showModule(index))
    }
}
