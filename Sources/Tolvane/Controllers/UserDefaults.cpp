#include <HostKit/Text.h>

#include <Controllers/UserDefaults.h>

#include <QSettings>
#include <filesystem>
#include <mutex>
#include <system_error>
#include <utility>

namespace tolvane {
namespace {

/// Qt names files by text, so that it would write elsewhere where the path is none; and it would
/// wait for ever at a pipe.
bool canStore(const FileURL& file) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(file.path(), error);
    return isValidUTF8(file.path()) && !file.path().empty() &&
           (!std::filesystem::exists(status) || std::filesystem::is_regular_file(status));
}

}

/// Writes values to the file, on one thread at a time.
struct UserDefaults::Store {
    explicit Store(const FileURL& url)
        : file(QString::fromStdString(url.path())) {}
    ~Store() { write(); }
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    QVariantMap read() const {
        const QSettings settings(file, QSettings::IniFormat);
        QVariantMap values;
        for (const QString& key : settings.allKeys()) {
            if (!key.isEmpty()) {
                values.insert(key, settings.value(key));
            }
        }
        return values;
    }

    void add(const QString& key, const QVariant& value) {
        const std::lock_guard lock(mutex);
        waiting.insert(key, value);
    }

    void write() {
        const QVariantMap values = takeWaiting();
        if (values.isEmpty()) {
            return;
        }
        QSettings settings(file, QSettings::IniFormat);
        for (auto value = values.begin(); value != values.end(); ++value) {
            settings.setValue(value.key(), value.value());
        }
    }

    QVariantMap takeWaiting() {
        const std::lock_guard lock(mutex);
        return std::exchange(waiting, {});
    }

    const QString file;
    std::mutex mutex;
    QVariantMap waiting;
};

UserDefaults::UserDefaults(const FileURL& file)
    : store_(canStore(file) ? std::make_shared<Store>(file) : nullptr)
    , writer_(1, [] {}) {
    if (store_) {
        values_ = store_->read();
    }
}

UserDefaults::~UserDefaults() = default;

std::optional<QString> UserDefaults::text(const QString& key) const {
    const QVariant found = values_.value(key);
    if (found.typeId() != QMetaType::QString) {
        return std::nullopt;
    }
    return found.toString();
}

bool UserDefaults::flag(const QString& key) const {
    // The file knows texts only.
    const QVariant found = values_.value(key);
    return (found.typeId() == QMetaType::Bool && found.toBool()) ||
           (found.typeId() == QMetaType::QString && found.toString() == QLatin1String("true"));
}

QVariantMap UserDefaults::map(const QString& key) const {
    const QVariant found = values_.value(key);
    return found.typeId() == QMetaType::QVariantMap ? found.toMap() : QVariantMap();
}

std::optional<FileURL> UserDefaults::path(const QString& key) const {
    const QVariant found = values_.value(key);
    const std::string path = found.typeId() == QMetaType::QByteArray
                                 ? found.toByteArray().toStdString()
                                 : text(key).value_or(QString()).toStdString();
    return path.starts_with('/') ? std::optional(FileURL(path)) : std::nullopt;
}

void UserDefaults::set(const QString& key, const QVariant& value) {
    values_.insert(key, value);
    if (store_) {
        store_->add(key, value);
        writer_.run([store = store_] { store->write(); });
    }
}

void UserDefaults::setPath(const QString& key, const FileURL& url) {
    if (isValidUTF8(url.path())) {
        set(key, QString::fromStdString(url.path()));
    } else {
        set(key, QByteArray::fromStdString(url.path()));
    }
}

}
