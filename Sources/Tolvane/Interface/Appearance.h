#pragma once

#include <Controllers/Published.h>
#include <QtQml/qqml.h>

#include <QDBusVariant>
#include <QEvent>
#include <QPalette>
#include <optional>

namespace tolvane {

/// How the desktop wants its windows to look, also when it changes its mind. Without a desktop that
/// tells, the lightness of the palette decides.
class Appearance : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program's entry")
    PUBLISHED(Appearance, bool, isDark)
    PUBLISHED(Appearance, bool, reducesMotion)

  public:
    explicit Appearance(const QPalette& palette);

    /// From now on the desktop is asked and listened to. Returns at once; answers come later.
    void followDesktop();
    void setPalette(const QPalette& palette);
    /// A value of the desktop's settings as the portal tells it (XDG Desktop Portal, interface
    /// org.freedesktop.portal.Settings version 1); ones of no interest are ignored.
    void applySetting(const QString& group, const QString& key, const QVariant& value);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

  private:
    void publish();
    /// Follows the program's palette.
    void followPalette();
    /// Reads and follows the settings of the desktop.
    void followPortal();

    bool isPaletteDark_ = false;
    /// Absent: the desktop has no preference.
    std::optional<bool> prefersDark_;
};

}
