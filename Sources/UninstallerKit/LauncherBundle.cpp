#include <HostKit/Text.h>
#include <UninstallerKit/ApplicationFolder.h>
#include <UninstallerKit/InfoDictionary.h>
#include <UninstallerKit/LauncherBundle.h>

#include <algorithm>
#include <set>
#include <string>
#include <utility>

namespace tolvane {
namespace {

constexpr std::string_view imageExtension = "appimage";

bool isFolderExtension(std::string_view extension) {
    return extension == "app" || extension == "AppDir";
}

bool isImage(const FileManager& files, const FileURL& file) {
    if (lowercased(file.pathExtension()) != imageExtension) {
        return false;
    }
    constexpr std::string_view executable = "\x7F"
                                            "ELF";
    constexpr std::size_t typePosition = 8;
    const std::string start = files.read(file, typePosition + 3).value_or("");
    const std::string_view type =
        std::string_view(start).substr(std::min(typePosition, start.size()));
    return start.starts_with(executable) && (type == "AI\x01" || type == "AI\x02");
}

/// The desktop entry of an application folder's own: the first one by name.
std::optional<std::string> ownEntryName(const FileManager& files, const FileURL& folder) {
    std::optional<std::string> first;
    for (const FolderEntry& entry : shownEntries(files, folder)) {
        if (launcherID(entry.name) && (!first || entry.name < *first)) {
            first = entry.name;
        }
    }
    return first;
}

bool isApplicationFolder(const FileManager& files, const FileURL& folder) {
    return isFolderExtension(folder.pathExtension()) ||
           (files.itemExists(folder.appending("AppRun")) && ownEntryName(files, folder));
}

bool isSelfContained(const FileManager& files, const FileURL& url, EntryType type) {
    return type == EntryType::directory ? isApplicationFolder(files, url)
                                        : type == EntryType::regular && isImage(files, url);
}

/// A folder that is no application by itself, and what of it is.
class PlainFolder {
  public:
    PlainFolder(const FileManager& files, FileURL url, const std::vector<Launcher>& launchers)
        : url_(std::move(url))
        , real_(files.resolvingLinks(url_)) {
        for (const FolderEntry& entry : shownEntries(files, url_)) {
            if (isSelfContained(files, url_.appending(entry.name), entry.type)) {
                selfContained_.push_back(entry.name);
            }
        }
        for (const Launcher& launcher : launchers) {
            for (const FileURL& program : launcher.programs) {
                meet(program);
            }
        }
    }

    /// The folder itself when launchers lead into it; what they lead into when that is several
    /// folders, as of one maker, or lies beside other applications, which must not go with it.
    std::vector<FileURL> bundles() const {
        if (selfContained_.empty() && subfolders_.size() < 2) {
            return hasPrograms_ ? std::vector{url_} : std::vector<FileURL>();
        }
        std::vector<FileURL> found;
        found.reserve(selfContained_.size() + subfolders_.size());
        for (const std::string& name : selfContained_) {
            found.push_back(url_.appending(name));
        }
        for (const std::string& name : subfolders_) {
            found.push_back(url_.appending(name));
        }
        return found;
    }

  private:
    void meet(const FileURL& program) {
        if (!liesWithin(program.path(), real_.path()) || program == real_) {
            return;
        }
        const std::string below = program.path().substr(real_.path().size() + 1);
        const std::size_t separator = below.find('/');
        std::string first = below.substr(0, separator);
        if (std::find(selfContained_.begin(), selfContained_.end(), first) !=
            selfContained_.end()) {
            return;
        }
        hasPrograms_ = true;
        if (separator != std::string::npos) {
            subfolders_.insert(std::move(first));
        }
    }

    FileURL url_;
    FileURL real_;
    std::vector<std::string> selfContained_;
    std::set<std::string> subfolders_;
    bool hasPrograms_ = false;
};

/// "foo-1.2.3-x86_64" has 1.2.3: numbers with dots between them behind a first separator.
std::string versionIn(std::string_view name) {
    constexpr std::string_view digits = "0123456789";
    for (std::size_t i = name.find_first_of("-_ ", 1); i < name.size();
         i = name.find_first_of("-_ ", i + 1)) {
        std::string_view rest = name.substr(i + 1);
        rest.remove_prefix(rest.starts_with('v') ? 1 : 0);
        std::size_t end = std::min(rest.find_first_not_of(digits), rest.size());
        bool hasDot = false;
        while (end > 0 && end + 1 < rest.size() && rest[end] == '.' &&
               digits.find(rest[end + 1]) != std::string_view::npos) {
            end = std::min(rest.find_first_not_of(digits, end + 1), rest.size());
            hasDot = true;
        }
        if (hasDot) {
            return std::string(rest.substr(0, end));
        }
    }
    return std::string(InfoDictionary::unknownVersion);
}

/// What an application is described by: its own entry, or a launcher of the user.
struct Descriptor {
    std::string id;
    DesktopEntry entry;
};

std::optional<Descriptor> ownDescriptor(const FileManager& files, const FileURL& bundle) {
    const std::optional<std::string> name = ownEntryName(files, bundle);
    std::optional<DesktopEntry> entry =
        name ? DesktopEntry::read(files, bundle.appending(*name)) : std::nullopt;
    return entry ? std::optional(Descriptor{*launcherID(*name), std::move(*entry)}) : std::nullopt;
}

/// The bundle's name without the extension that makes it one; other folders have none.
std::string stemOf(const FileURL& bundle) {
    const std::string_view name = bundle.lastPathComponent();
    const std::string_view extension = bundle.pathExtension();
    const bool isMark = isFolderExtension(extension) || lowercased(extension) == imageExtension;
    return std::string(isMark ? name.substr(0, name.size() - extension.size() - 1) : name);
}

InstalledApp describedApp(const FileURL& bundle, const std::optional<Descriptor>& descriptor,
                          std::string_view locale) {
    std::string stem = stemOf(bundle);
    InstalledApp app;
    app.version = versionIn(stem);
    app.url = bundle;
    if (!descriptor) {
        app.name = stem;
        app.bundleID = std::move(stem);
        return app;
    }
    app.name = descriptor->entry.localized("Name", locale).value_or(stem);
    app.bundleID = descriptor->id;
    app.teamID = descriptor->id;
    app.version = descriptor->entry.value("X-AppImage-Version").value_or(app.version);
    return app;
}

/// All launchers that lead into the bundle belong to it.
void associate(InstalledApp& app, const FileURL& realBundle,
               const std::vector<Launcher>& launchers) {
    std::set<std::string> identifiers(app.associatedBundleIDs.begin(),
                                      app.associatedBundleIDs.end());
    for (const Launcher& launcher : launchers) {
        if (launcher.id != app.bundleID && launcher.leadsInto(realBundle)) {
            identifiers.insert(launcher.id);
        }
    }
    app.associatedBundleIDs.assign(identifiers.begin(), identifiers.end());
}

}

std::vector<FileURL> launcherBundles(const FileManager& files, const FileURL& folder,
                                     const std::vector<Launcher>& launchers) {
    std::vector<FileURL> bundles;
    for (const FolderEntry& entry : shownEntries(files, folder)) {
        FileURL url = folder.appending(entry.name);
        if (isSelfContained(files, url, entry.type)) {
            bundles.push_back(std::move(url));
        } else if (entry.type == EntryType::directory) {
            std::ranges::move(PlainFolder(files, std::move(url), launchers).bundles(),
                              std::back_inserter(bundles));
        }
    }
    return bundles;
}

std::optional<InstalledApp> makeLauncherApp(const FileManager& files, const FileURL& bundle,
                                            bool isSystem, const std::vector<Launcher>& launchers,
                                            std::string_view locale) {
    const FileURL real = files.resolvingLinks(bundle);
    const auto launcher = std::find_if(launchers.begin(), launchers.end(),
                                       [&](const Launcher& each) { return each.leadsInto(real); });
    std::optional<InstalledApp> app;
    if (InfoDictionary::isIn(files, bundle)) {
        app = InfoDictionary::makeApp(files, bundle, isSystem);
    } else {
        const bool isOwn = isApplicationFolder(files, bundle);
        std::optional<Descriptor> descriptor = isOwn ? ownDescriptor(files, bundle) : std::nullopt;
        if (!descriptor && launcher != launchers.end()) {
            descriptor = Descriptor{launcher->id, launcher->entry};
        }
        app = describedApp(bundle, descriptor, locale);
    }
    if (app) {
        app->isSystem = isSystem;
        associate(*app, real, launchers);
    }
    return app;
}

}
