#include <HostKit/DeepEnumerator.h>
#include <UninstallerKit/Launcher.h>

#include <algorithm>
#include <utility>

namespace tolvane {
namespace {

/// Where a program lies that a launcher names; absent when it is not there.
std::optional<FileURL> locate(const FileManager& files, const ApplicationPlaces& places,
                              const std::string& program) {
    std::vector<FileURL> candidates;
    if (program.starts_with('/')) {
        candidates.emplace_back(program);
    } else if (!program.empty() && program.find('/') == std::string::npos) {
        for (const FileURL& folder : places.programFolders) {
            candidates.push_back(folder.appending(program));
        }
    }
    for (const FileURL& candidate : candidates) {
        if (files.targetType(candidate) == FileType::regular) {
            return files.resolvingLinks(candidate);
        }
    }
    return std::nullopt;
}

std::vector<FileURL> programs(const FileManager& files, const ApplicationPlaces& places,
                              const DesktopEntry& entry) {
    std::vector<FileURL> found;
    for (const std::optional<std::string>& named : {entry.program(), entry.value("TryExec")}) {
        std::optional<FileURL> program =
            named ? locate(files, places, *named) : std::optional<FileURL>();
        if (program) {
            found.push_back(std::move(*program));
        }
    }
    return found;
}

}

bool Launcher::leadsInto(const FileURL& item) const {
    return std::any_of(programs.begin(), programs.end(), [&](const FileURL& program) {
        return liesWithin(program.path(), item.path());
    });
}

std::optional<std::string> launcherID(std::string_view fileName) {
    constexpr std::string_view ending = ".desktop";
    if (fileName.size() <= ending.size() || !fileName.ends_with(ending)) {
        return std::nullopt;
    }
    return std::string(fileName.substr(0, fileName.size() - ending.size()));
}

std::vector<Launcher> userLaunchers(const FileManager& files, const ApplicationPlaces& places) {
    std::vector<std::pair<std::string, FileURL>> found;
    DeepEnumerator walk(files, places.launchers, {});
    while (walk.next()) {
        if (std::optional<std::string> id = launcherID(walk.name())) {
            found.emplace_back(std::move(*id), walk.url());
        }
    }
    std::sort(found.begin(), found.end());
    std::vector<Launcher> launchers;
    for (auto& [id, url] : found) {
        if (std::optional<DesktopEntry> entry = DesktopEntry::read(files, url)) {
            std::vector<FileURL> started = programs(files, places, *entry);
            launchers.push_back({std::move(id), std::move(*entry), std::move(started)});
        }
    }
    return launchers;
}

}
