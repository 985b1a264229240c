#include <UninstallerKit/ApplicationFolder.h>

#include <cerrno>
#include <memory>
#include <utility>

namespace tolvane {
namespace {

constexpr std::string_view bundleExtension = "app";

EntryType typeOf(Directory& directory, std::size_t position) {
    const EntryType listed = directory.listedType(position);
    if (listed != EntryType::unknown) {
        return listed;
    }
    const Result<ResourceValues, SystemError> values = directory.values(position);
    const std::optional<FileType> type = values ? values->fileResourceType : std::nullopt;
    if (!type) {
        return EntryType::unknown;
    }
    switch (*type) {
    case FileType::regular:
        return EntryType::regular;
    case FileType::directory:
        return EntryType::directory;
    case FileType::symbolicLink:
        return EntryType::symbolicLink;
    case FileType::other:
        break;
    }
    return EntryType::other;
}

}

std::vector<FolderEntry> shownEntries(const FileManager& files, const FileURL& folder) {
    Listing listing;
    listing.skipsHidden = true;
    Result<std::unique_ptr<Directory>, SystemError> opened = files.openDirectory(folder, listing);
    std::vector<FolderEntry> entries;
    const std::size_t count = opened ? (*opened)->count() : 0;
    entries.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        entries.push_back({std::string((*opened)->name(i)), typeOf(**opened, i)});
    }
    return entries;
}

std::vector<ScanFailure> unreadFolders(const FileManager& files, const FileURL& folder) {
    std::vector<ScanFailure> failures;
    const auto look = [&](const FileURL& url) {
        const Result<std::unique_ptr<Directory>, SystemError> opened = files.openDirectory(url, {});
        if (!opened && opened.error().code != ENOENT) {
            failures.push_back({url.path(), opened.error().description()});
        }
    };
    look(folder);
    for (const FolderEntry& entry : shownEntries(files, folder)) {
        if (entry.type == EntryType::directory) {
            look(folder.appending(entry.name));
        }
    }
    return failures;
}

std::vector<FileURL> appBundles(const FileManager& files, const FileURL& folder) {
    std::vector<FileURL> bundles;
    for (const FolderEntry& entry : shownEntries(files, folder)) {
        FileURL url = folder.appending(entry.name);
        if (url.pathExtension() == bundleExtension) {
            bundles.push_back(std::move(url));
        } else if (entry.type == EntryType::directory) {
            for (const FolderEntry& inner : shownEntries(files, url)) {
                FileURL innerURL = url.appending(inner.name);
                if (innerURL.pathExtension() == bundleExtension) {
                    bundles.push_back(std::move(innerURL));
                }
            }
        }
    }
    return bundles;
}

}
