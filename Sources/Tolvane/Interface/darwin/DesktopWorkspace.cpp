#include <Interface/DesktopWorkspace.h>

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QStringList>

namespace tolvane {
namespace {

constexpr const char* opener = "/usr/bin/open";

void openSettings(const QString& link) {
    QProcess::startDetached(opener, {link});
}

/// The folder "Tolvane.app" that holds the program.
QString bundlePath() {
    const FileURL program(QCoreApplication::applicationFilePath().toStdString());
    const FileURL contents = program.deletingLastPathComponent().deletingLastPathComponent();
    return QString::fromStdString(contents.deletingLastPathComponent().path());
}

}

void DesktopWorkspace::reveal(const FileURL& url) {
    QProcess::startDetached(opener,
                            {"-R", QFile::decodeName(QByteArray::fromStdString(url.path()))});
}

void DesktopWorkspace::openSettingsPane(SettingsPane pane) {
    openSettings(pane == SettingsPane::fullDiskAccess
                     ? "x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles"
                     : "x-apple.systempreferences:com.apple.LoginItems-Settings.extension");
}

void DesktopWorkspace::relaunch() {
    if (QProcess::startDetached(opener, {"-n", bundlePath()})) {
        QCoreApplication::quit();
    }
}

}
