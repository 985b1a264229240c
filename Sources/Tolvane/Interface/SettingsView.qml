import QtQuick
import QtQuick.Layouts
import Tolvane
import Tolvane.Components

/// The settings, in a window of their own.
ThemedWindow {
    id: window

    required property SettingsViewModel settings

    width: 680
    height: 640
    minimumWidth: 480
    minimumHeight: 420
    title: qsTr("Settings")
    visible: true

    Component.onCompleted: settings.appeared()

    Shortcut {
        sequences: ["Esc", "Ctrl+W"]
        onActivated: window.close()
    }

    ScrollPage {
        id: page

        objectName: "settingsPage"
        anchors.fill: parent
        contentHeight: column.implicitHeight + 2 * Theme.pageMargin

        ColumnLayout {
            id: column

            x: Theme.pageMargin
            y: Theme.pageMargin
            width: page.width - 2 * Theme.pageMargin
            spacing: Theme.pageMargin

            SettingsSection {
                title: qsTr("Full Disk Access")

                PlainLabel {
                    objectName: "accessStatus"
                    text: window.settings.access.statusText
                    color: window.settings.access.isGranted ? Theme.successText : Theme.warningText
                    font.weight: Font.DemiBold
                }
                PlainLabel {
                    objectName: "accessDetail"
                    Layout.fillWidth: true
                    text: window.settings.access.detailText
                    color: Theme.secondaryText
                    wrapMode: Text.Wrap
                }
                Flow {
                    Layout.fillWidth: true
                    spacing: Theme.spacing

                    PlainButton {
                        objectName: "recheckAccess"
                        text: qsTr("Recheck")
                        onClicked: window.settings.access.recheck()
                    }
                    PlainButton {
                        objectName: "openAccessSettings"
                        text: qsTr("Open Settings")
                        onClicked: window.settings.access.openSettings()
                    }
                    PlainButton {
                        objectName: "relaunch"
                        text: qsTr("Relaunch")
                        onClicked: window.settings.access.relaunch()
                    }
                }
            }
            SettingsSection {
                title: qsTr("Diagnostics")

                PlainLabel {
                    text: qsTr("Crash reports")
                    font.weight: Font.Medium
                }
                PlainLabel {
                    objectName: "noReports"
                    visible: text !== ""
                    text: window.settings.noReportsText
                    color: Theme.secondaryText
                }
                Column {
                    Layout.fillWidth: true

                    Repeater {
                        model: window.settings.reports

                        SettingsReport {}
                        onItemAdded: (index, item) => {
                            const report = item as SettingsReport;
                            report.width = Qt.binding(() => column.width - 2 * Theme.wideSpacing);
                            report.revealRequested.connect(row => window.settings.revealReport(row));
                        }
                    }
                }
            }
            SettingsSection {
                title: qsTr("Scan log")

                ElidedLabel {
                    Layout.fillWidth: true
                    text: window.settings.logPath
                    color: Theme.secondaryText
                    font.pixelSize: Theme.smallText
                    elide: Text.ElideMiddle
                }
                LogTail {
                    id: tail

                    Layout.fillWidth: true
                    text: window.settings.logTail
                }
                Connections {
                    target: window.settings

                    function onLogTailShown(): void {
                        tail.showEnd();
                    }
                }
                Flow {
                    Layout.fillWidth: true
                    spacing: Theme.spacing

                    PlainButton {
                        objectName: "refreshDiagnostics"
                        iconName: "view-refresh"
                        text: qsTr("Refresh")
                        onClicked: window.settings.refresh()
                    }
                    PlainButton {
                        objectName: "revealLog"
                        iconName: "folder-open"
                        text: qsTr("Reveal")
                        onClicked: window.settings.revealLog()
                    }
                    PlainButton {
                        objectName: "showTail"
                        text: qsTr("Show tail")
                        onClicked: {
                            window.settings.refresh();
                            tail.forceActiveFocus(Qt.TabFocusReason);
                        }
                    }
                }
            }
            SettingsSection {
                title: qsTr("About")

                InspectorLine {
                    Layout.fillWidth: true
                    label: qsTr("Version")
                    value: window.settings.versionText
                }
                InspectorLine {
                    Layout.fillWidth: true
                    label: qsTr("Build")
                    value: window.settings.buildText
                }
            }
        }
    }
}
