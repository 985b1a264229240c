#include <HostKit/Text.h>

#include <Controllers/ScanStatistics.h>

namespace tolvane {
namespace {

constexpr qsizetype maximumRoots = 40;

constexpr QLatin1String filesKey("scanStats.files");
constexpr QLatin1String bytesKey("scanStats.bytes");

/// 0 when there is none.
std::int64_t number(const QVariantMap& map, const QString& key) {
    const QVariant value = map.value(key);
    return value.typeId() == QMetaType::LongLong ? value.toLongLong() : 0;
}

}

std::optional<ScanStatistics::Expected> ScanStatistics::expected(const FileURL& root) const {
    if (!isValidUTF8(root.path())) {
        return std::nullopt;
    }
    const QString key = QString::fromStdString(root.path());
    const Expected found{.files = number(defaults_.map(filesKey), key),
                         .bytes = number(defaults_.map(bytesKey), key)};
    return found.files > 0 && found.bytes > 0 ? std::optional(found) : std::nullopt;
}

void ScanStatistics::save(const FileURL& root, const Expected& found) {
    if (!isValidUTF8(root.path())) {
        return;
    }
    const QString key = QString::fromStdString(root.path());
    QVariantMap files = defaults_.map(filesKey);
    QVariantMap bytes = defaults_.map(bytesKey);
    files.insert(key, QVariant::fromValue<qlonglong>(found.files));
    bytes.insert(key, QVariant::fromValue<qlonglong>(found.bytes));
    if (files.size() > maximumRoots) {
        const QString forgotten = files.firstKey();
        files.remove(forgotten);
        bytes.remove(forgotten);
    }
    defaults_.set(filesKey, files);
    defaults_.set(bytesKey, bytes);
}

}
