#include <HostKit/Text.h>

#include <Controllers/AppRows.h>
#include <Controllers/ShownFigures.h>
#include <Controllers/ShownText.h>

#include <QByteArray>
#include <utility>

namespace tolvane {

AppRow::AppRow(InstalledApp app) {
    std::string name = lowercased(app.name);
    std::string identifier = lowercased(app.bundleID);
    facts = std::make_shared<const Facts>(
        Facts{std::move(app), std::move(name), std::move(identifier)});
}

bool AppRow::matches(const std::string& needle) const {
    return facts->name.find(needle) != std::string::npos ||
           facts->identifier.find(needle) != std::string::npos;
}

namespace AppRows {
namespace {

constexpr QByteArray::Base64Options encoding =
    QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals;

QString sizeText(const AppRow& row) {
    return row.size ? shownSize(*row.size) : QString();
}

QString accessibleText(const AppRow& row) {
    const QString text = QStringLiteral("%1, version %2")
                             .arg(shownText(row.app().name), shownText(row.app().version));
    return row.size ? text + QStringLiteral(", ") + sizeText(row) : text;
}

}

std::vector<RecordModel<AppRow>::Role> roles() {
    using Row = const AppRow&;
    return {{"appID", [](Row row) { return idOf(row.app()); }},
            {"name", [](Row row) { return shownText(row.app().name); }},
            {"versionText", [](Row row) { return shownText(row.app().version); }},
            {"identifierText", [](Row row) { return shownText(row.app().bundleID); }},
            {"pathText", [](Row row) { return shownPath(row.app().url); }},
            {"iconKey", [](Row row) { return row.iconKey; }},
            {"sizeText", [](Row row) { return sizeText(row); }},
            {"isSystem", [](Row row) { return row.app().isSystem; }},
            {"accessibleText", [](Row row) { return accessibleText(row); }}};
}

QString idOf(const InstalledApp& app) {
    return QString::fromLatin1(app.bundleID);
}

std::string identifier(const QString& id) {
    return id.toLatin1().toStdString();
}

QString iconKey(const std::optional<FileURL>& file) {
    return file ? QString::fromLatin1(QByteArray::fromStdString(file->path()).toBase64(encoding))
                : QString();
}

std::optional<FileURL> iconFile(const QString& key) {
    const QByteArray::FromBase64Result path = QByteArray::fromBase64Encoding(
        key.toLatin1(), encoding | QByteArray::AbortOnBase64DecodingErrors);
    const bool isPath = path && (*path).startsWith('/') && !(*path).contains('\0');
    return isPath ? std::optional(FileURL((*path).toStdString())) : std::nullopt;
}

}
}
