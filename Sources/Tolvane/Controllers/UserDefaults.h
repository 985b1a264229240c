#pragma once

#include <HostKit/FileURL.h>
#include <Services/Workers.h>

#include <QString>
#include <QVariantMap>
#include <memory>
#include <optional>

namespace tolvane {

/// What the application remembers from one start to the next. A file that is missing or broken, or
/// a value of another type, reads as absent; what cannot be written is remembered until the end of
/// the program and lost silently then, as losing it harms nothing. For the main thread, which never
/// waits for the disk after the start: a thread writes what was set.
class UserDefaults {
  public:
    /// `file` is an INI file (on macOS it names the native preferences).
    explicit UserDefaults(const FileURL& file);
    /// Writes what is still waiting.
    ~UserDefaults();
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;

    std::optional<QString> text(const QString& key) const;
    /// False when absent.
    bool flag(const QString& key) const;
    /// Empty when absent.
    QVariantMap map(const QString& key) const;
    /// Also absent when it is not absolute: there is no folder that it could be below.
    std::optional<FileURL> path(const QString& key) const;

    /// A text, a flag or a map. Maps are one value each, so their keys may be anything.
    void set(const QString& key, const QVariant& value);
    /// Bytes that are no text are kept as they are.
    void setPath(const QString& key, const FileURL& url);

  private:
    struct Store;

    QVariantMap values_;
    /// Null where nothing can be stored.
    std::shared_ptr<Store> store_;
    /// One thread, so that a later value never arrives before an earlier one.
    Workers writer_;
};

}
