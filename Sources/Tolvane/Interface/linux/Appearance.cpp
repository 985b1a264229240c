#include <Interface/Appearance.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QFile>

namespace tolvane {
namespace {

constexpr const char* portal = "org.freedesktop.portal.Desktop";
constexpr const char* portalPath = "/org/freedesktop/portal/desktop";
constexpr const char* settingsInterface = "org.freedesktop.portal.Settings";

/// Whether there is a bus to talk to; looking for one that is not there could start one.
bool hasSessionBus() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus");
}

/// The first version of the interface wraps its answers twice.
QVariant unwrapped(QVariant value) {
    while (value.canConvert<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

void readSetting(Appearance& appearance, const QString& group, const QString& key) {
    QDBusMessage message =
        QDBusMessage::createMethodCall(portal, portalPath, settingsInterface, "Read");
    message << group << key;
    auto* const watcher =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message), &appearance);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &appearance,
                     [&appearance, watcher, group, key] {
                         const QDBusMessage answer = watcher->reply();
                         if (!watcher->isError() && !answer.arguments().isEmpty()) {
                             appearance.applySetting(group, key,
                                                     unwrapped(answer.arguments().constFirst()));
                         }
                         watcher->deleteLater();
                     });
}

}

void Appearance::followPortal() {
    if (!hasSessionBus()) {
        return;
    }
    // No name of a service: looking for its owner would wait for an answer.
    QDBusConnection::sessionBus().connect(QString(), portalPath, settingsInterface,
                                          "SettingChanged", this,
                                          SLOT(settingChanged(QString, QString, QDBusVariant)));
    readSetting(*this, "org.freedesktop.appearance", "color-scheme");
    readSetting(*this, "org.gnome.desktop.interface", "enable-animations");
}

}
