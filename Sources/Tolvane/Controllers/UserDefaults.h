#pragma once

#include <HostKit/FileURL.h>

#include <QSettings>
#include <QString>
#include <QVariantMap>
#include <memory>
#include <optional>

namespace tolvane {

/// What the application remembers from one start to the next. A file that is missing or broken, or
/// a value of another type, reads as absent; what cannot be written is remembered until the end of
/// the program and lost silently then, as losing it harms nothing. For the main thread.
class UserDefaults {
  public:
    /// `file` is an INI file (on macOS it names the native preferences).
    explicit UserDefaults(const FileURL& file);

    std::optional<QString> text(const QString& key) const;
    /// False when absent.
    bool flag(const QString& key) const;
    /// Empty when absent.
    QVariantMap map(const QString& key) const;
    std::optional<FileURL> path(const QString& key) const;

    /// A text, a flag or a map. Maps are one value each, so their keys may be anything.
    void set(const QString& key, const QVariant& value);
    /// Bytes that are no text are kept as they are.
    void setPath(const QString& key, const FileURL& url);

  private:
    QVariant value(const QString& key) const;

    /// Null where nothing can be stored.
    std::unique_ptr<QSettings> settings_;
    /// What was set where nothing can be stored.
    QVariantMap unstored_;
};

}
