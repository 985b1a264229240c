#pragma once

#include <HostKit/Checked.h>
#include <UninstallerKit/InstalledApp.h>

#include <Controllers/RecordModel.h>

#include <QString>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tolvane {

/// An application as the list of them shows it. Cheap to copy.
struct AppRow {
    struct Facts {
        InstalledApp app;
        /// In small letters, for the search.
        std::string name;
        std::string identifier;
    };

    explicit AppRow(InstalledApp app);

    const InstalledApp& app() const { return facts->app; }
    /// `needle` must be in small letters.
    bool matches(const std::string& needle) const;

    std::shared_ptr<const Facts> facts;
    /// See `AppRows::iconKey`.
    QString iconKey;
    /// Bytes on disk; absent until the application has been measured.
    std::optional<Bytes> size;

    friend bool operator==(const AppRow& a, const AppRow& b) {
        return (a.facts == b.facts || a.app() == b.app()) && a.iconKey == b.iconKey &&
               a.size == b.size;
    }
};

/// The rows of the list of applications.
namespace AppRows {

/// `appID`, `name`, `versionText`, `identifierText`, `pathText`, `iconKey`, `sizeText` (empty until
/// measured), `isSystem`, `accessibleText`.
std::vector<RecordModel<AppRow>::Role> roles();

/// The application's identifier, whose bytes need not be text, as QML names the application.
QString idOf(const InstalledApp& app);
/// The way back.
std::string identifier(const QString& id);

/// What the window draws an icon by: the path of its file in letters and digits. Empty: none.
QString iconKey(const std::optional<FileURL>& file);
/// The way back; absent when the key is none.
std::optional<FileURL> iconFile(const QString& key);

}
}
