#pragma once

#include <HostKit/FileURL.h>

#include <string>
#include <vector>

namespace tolvane {

/// An application, as far as its bundle and its launchers tell. Texts are any bytes but NUL.
struct InstalledApp {
    std::string name;
    /// The bundle's file name without its extension when nothing declares an identifier.
    std::string bundleID;
    /// An em dash when nothing tells it.
    std::string version;
    /// For people only; the identifier when no team is declared, empty when that is not either.
    std::string teamID;
    /// The bundle: a folder or a file.
    FileURL url;
    bool isSystem = false;
    /// Identifiers of what else belongs to it, ascending by their bytes, each once.
    std::vector<std::string> associatedBundleIDs;

    const std::string& id() const { return bundleID; }

    friend bool operator==(const InstalledApp&, const InstalledApp&) = default;
};

}

template <>
struct std::hash<tolvane::InstalledApp> {
    /// Equal applications have equal identifiers and places.
    std::size_t operator()(const tolvane::InstalledApp& app) const noexcept {
        return std::hash<std::string>{}(app.bundleID) * 31 + std::hash<tolvane::FileURL>{}(app.url);
    }
};
