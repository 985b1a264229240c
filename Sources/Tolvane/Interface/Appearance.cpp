#include <Interface/Appearance.h>

#include <QGuiApplication>

namespace tolvane {
namespace {

constexpr uint prefersDarkColours = 1;
constexpr uint prefersLightColours = 2;

bool isDarkPalette(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

}

Appearance::Appearance(const QPalette& palette) {
    setPalette(palette);
}

void Appearance::followDesktop() {
    followPalette();
    followPortal();
}

void Appearance::setPalette(const QPalette& palette) {
    isPaletteDark_ = isDarkPalette(palette);
    publish();
}

void Appearance::applySetting(const QString& group, const QString& key, const QVariant& value) {
    if (group == "org.freedesktop.appearance" && key == "color-scheme") {
        const uint scheme = value.toUInt();
        const bool isChoice = scheme == prefersDarkColours || scheme == prefersLightColours;
        prefersDark_ = isChoice ? std::optional(scheme == prefersDarkColours) : std::nullopt;
        publish();
    } else if (group == "org.gnome.desktop.interface" && key == "enable-animations") {
        reducesMotion_ = value.typeId() == QMetaType::Bool && !value.toBool();
    }
}

bool Appearance::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange) {
        setPalette(QGuiApplication::palette());
    }
    return QObject::eventFilter(watched, event);
}

void Appearance::settingChanged(const QString& group, const QString& key,
                                const QDBusVariant& value) {
    applySetting(group, key, value.variant());
}

void Appearance::publish() {
    isDark_ = prefersDark_.value_or(isPaletteDark_);
}

void Appearance::followPalette() {
    QCoreApplication::instance()->installEventFilter(this);
}

}
