#include <PerformanceKit/StartupFolderReader.h>
#include <PerformanceKit/UnitFile.h>

#include <array>
#include <map>
#include <utility>

namespace tolvane {
namespace {

constexpr std::string_view extension = "service";

struct Place {
    FileURL url;
    bool isEnabled = false;
};

/// Where each unit is told of, by its name: its own file before the links that enable it.
std::map<std::string, Place> places(const StartupFolderReader& reader) {
    std::map<std::string, Place> found;
    for (const std::string& name : reader.names(reader.url, extension)) {
        found.emplace(name, Place{reader.url.appending(name)});
    }
    for (const std::string_view kind : {"wants", "requires"}) {
        for (const std::string& folder : reader.names(reader.url, kind)) {
            const FileURL links = reader.url.appending(folder);
            for (const std::string& name : reader.names(links, extension)) {
                found.emplace(name, Place{links.appending(name)}).first->second.isEnabled = true;
            }
        }
    }
    return found;
}

/// Absent when the unit cannot be read or is none; a masked one is a link to /dev/null, which is no
/// regular file.
std::optional<UnitFile> readUnit(const FileManager& files, const FileURL& url) {
    // One more byte, so that a file that is too large does not pass as its beginning.
    const auto text = files.read(url, UnitFile::largestSize + 1);
    return text ? UnitFile::parse(*text) : std::nullopt;
}

}

std::vector<StartupAgent> StartupFolderReader::units() const {
    std::vector<StartupAgent> agents;
    for (auto& [name, place] : tolvane::places(*this)) {
        if (shouldStop()) {
            break;
        }
        if (std::optional<UnitFile> unit = readUnit(files, place.url)) {
            agents.push_back({.label = withoutExtension(name),
                              .program = std::move(unit->program),
                              .runAtLoad = place.isEnabled,
                              .url = place.url,
                              .scope = folder.scope});
        }
    }
    return agents;
}

}
