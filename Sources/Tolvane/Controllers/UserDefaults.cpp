#include <HostKit/Text.h>

#include <Controllers/UserDefaults.h>

#include <filesystem>
#include <system_error>

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

UserDefaults::UserDefaults(const FileURL& file) {
    if (canStore(file)) {
        settings_ =
            std::make_unique<QSettings>(QString::fromStdString(file.path()), QSettings::IniFormat);
    }
}

std::optional<QString> UserDefaults::text(const QString& key) const {
    const QVariant found = value(key);
    if (found.typeId() != QMetaType::QString) {
        return std::nullopt;
    }
    return found.toString();
}

bool UserDefaults::flag(const QString& key) const {
    // The file knows texts only.
    const QVariant found = value(key);
    return (found.typeId() == QMetaType::Bool && found.toBool()) ||
           (found.typeId() == QMetaType::QString && found.toString() == QLatin1String("true"));
}

QVariantMap UserDefaults::map(const QString& key) const {
    const QVariant found = value(key);
    return found.typeId() == QMetaType::QVariantMap ? found.toMap() : QVariantMap();
}

std::optional<FileURL> UserDefaults::path(const QString& key) const {
    const QVariant found = value(key);
    if (found.typeId() == QMetaType::QByteArray) {
        return FileURL(found.toByteArray().toStdString());
    }
    const std::optional<QString> stored = text(key);
    return stored ? std::optional(FileURL(stored->toStdString())) : std::nullopt;
}

void UserDefaults::set(const QString& key, const QVariant& value) {
    if (settings_) {
        settings_->setValue(key, value);
    } else {
        unstored_.insert(key, value);
    }
}

void UserDefaults::setPath(const QString& key, const FileURL& url) {
    if (isValidUTF8(url.path())) {
        set(key, QString::fromStdString(url.path()));
    } else {
        set(key, QByteArray::fromStdString(url.path()));
    }
}

QVariant UserDefaults::value(const QString& key) const {
    return settings_ ? settings_->value(key) : unstored_.value(key);
}

}
