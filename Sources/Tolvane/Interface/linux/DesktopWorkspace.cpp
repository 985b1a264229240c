#include <HostKit/ChildProcess.h>

#include <Controllers/ShownText.h>
#include <Interface/DesktopWorkspace.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QFile>
#include <QStringList>
#include <string>
#include <vector>

namespace tolvane {
namespace {

enum class Desktop { gnome, kde, other };

/// The variable lists the desktop and those it descends from (Desktop Entry Specification 1.5).
Desktop currentDesktop() {
    const QStringList names = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':');
    if (names.contains("GNOME")) {
        return Desktop::gnome;
    }
    return names.contains("KDE") ? Desktop::kde : Desktop::other;
}

bool start(const std::string& program, const std::vector<std::string>& arguments) {
    return launchDetached({FileURL(program), arguments}).has_value();
}

bool openPane(const std::string& gnomePane, const std::vector<std::string>& kdeArguments) {
    switch (currentDesktop()) {
    case Desktop::gnome:
        return start("gnome-control-center", {gnomePane});
    case Desktop::kde:
        return start("systemsettings", kdeArguments);
    case Desktop::other:
        break;
    }
    return false;
}

/// The request of the File Manager D-Bus interface (freedesktop.org, version 1).
QDBusMessage showItems(const FileURL& url) {
    QDBusMessage message = QDBusMessage::createMethodCall(
        "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
        "org.freedesktop.FileManager1", "ShowItems");
    message << QStringList{QString::fromLatin1(qurl(url).toEncoded())} << QString();
    return message;
}

}

void DesktopWorkspace::reveal(const FileURL& url) {
    const QDBusPendingCall call = QDBusConnection::sessionBus().asyncCall(showItems(url));
    auto* const watcher = new QDBusPendingCallWatcher(call);
    const QUrl parent = qurl(url.deletingLastPathComponent());
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, parent] {
        if (watcher->isError()) {
            QDesktopServices::openUrl(parent);
        }
        watcher->deleteLater();
    });
}

void DesktopWorkspace::openSettingsPane(SettingsPane pane) {
    if (pane == SettingsPane::fullDiskAccess) {
        openPane("privacy", {});
    } else if (!openPane("applications", {"kcm_autostart"})) {
        const FileURL configuration =
            locations_.userDefaultsFile.deletingLastPathComponent().deletingLastPathComponent();
        open(configuration.appending("autostart"));
    }
}

void DesktopWorkspace::relaunch() {
    // What runs from an AppImage goes with it: its mount ends with this instance.
    const QString image = qEnvironmentVariable("APPIMAGE");
    const QString program = image.isEmpty() ? QCoreApplication::applicationFilePath() : image;
    if (start(QFile::encodeName(program).toStdString(), {})) {
        QCoreApplication::quit();
    }
}

}
