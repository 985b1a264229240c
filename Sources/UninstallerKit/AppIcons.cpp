#include <UninstallerKit/AppIcons.h>
#include <UninstallerKit/ApplicationFolder.h>
#include <UninstallerKit/InfoDictionary.h>

#include <algorithm>
#include <array>
#include <utility>

namespace tolvane {
namespace {

/// Those that look well at the sizes of a list on any screen first.
constexpr std::array<std::string_view, 9> sizes = {
    "256x256", "128x128", "scalable", "192x192", "96x96", "512x512", "64x64", "48x48", "32x32"};
constexpr std::array<std::string_view, 2> formats = {"png", "svg"};

std::optional<std::string_view> iconName(std::string_view fileName) {
    for (const std::string_view format : formats) {
        if (fileName.size() > format.size() + 1 && fileName.ends_with(format) &&
            fileName[fileName.size() - format.size() - 1] == '.') {
            return fileName.substr(0, fileName.size() - format.size() - 1);
        }
    }
    return std::nullopt;
}

/// The icon's file in a folder, whether or not it is named with its format.
std::optional<FileURL> iconIn(const FileManager& files, const FileURL& folder,
                              const std::string& icon) {
    std::vector<std::string> names{icon};
    for (const std::string_view format : formats) {
        names.push_back(icon + "." + std::string(format));
    }
    for (const std::string& name : names) {
        FileURL file = folder.appending(name);
        if (files.targetType(file) == FileType::regular) {
            return file;
        }
    }
    return std::nullopt;
}

}

AppIcons::AppIcons(const FileManager& files, const ApplicationPlaces& places)
    : files_(files)
    , format_(places.format) {
    if (format_ == BundleFormat::desktopEntry) {
        launchers_ = userLaunchers(files, places);
    }
    for (const FileURL& folder : places.iconFolders) {
        for (const std::string_view size : sizes) {
            list(folder.appending("hicolor").appending(size).appending("apps"));
        }
        list(folder);
    }
}

void AppIcons::list(const FileURL& folder) {
    for (const FolderEntry& entry : shownEntries(files_, folder)) {
        if (const auto name = iconName(entry.name)) {
            themed_.try_emplace(std::string(*name), folder.appending(entry.name));
        }
    }
}

std::optional<FileURL> AppIcons::file(const InstalledApp& app) const {
    if (std::optional<FileURL> declared = InfoDictionary::iconFile(files_, app.url)) {
        return declared;
    }
    if (format_ == BundleFormat::infoDictionary) {
        return std::nullopt;
    }
    const bool isFileName = app.bundleID.find('/') == std::string::npos;
    const std::optional<DesktopEntry> own =
        isFileName ? DesktopEntry::read(files_, app.url.appending(app.bundleID + ".desktop"))
                   : std::nullopt;
    if (std::optional<FileURL> found = own ? iconOf(*own, app.url) : std::nullopt) {
        return found;
    }
    const FileURL real = files_.resolvingLinks(app.url);
    for (const Launcher& launcher : launchers_) {
        if (launcher.leadsInto(real)) {
            if (std::optional<FileURL> found = iconOf(launcher.entry, app.url)) {
                return found;
            }
        }
    }
    return std::nullopt;
}

std::optional<FileURL> AppIcons::iconOf(const DesktopEntry& entry, const FileURL& bundle) const {
    const std::string icon = entry.value("Icon").value_or("");
    if (icon.empty() || icon.find('\0') != std::string::npos) {
        return std::nullopt;
    }
    if (icon.starts_with('/')) {
        FileURL file(icon);
        return files_.targetType(file) == FileType::regular ? std::optional(std::move(file))
                                                            : std::nullopt;
    }
    if (icon.find('/') != std::string::npos) {
        return std::nullopt;
    }
    if (std::optional<FileURL> inside = iconIn(files_, bundle, icon)) {
        return inside;
    }
    const auto found = themed_.find(iconName(icon).value_or(icon));
    return found == themed_.end() ? std::nullopt : std::optional(found->second);
}

}
