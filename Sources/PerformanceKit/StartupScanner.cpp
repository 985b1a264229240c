#include <HostKit/Collation.h>
#include <PerformanceKit/StartupFolderReader.h>
#include <PerformanceKit/StartupScanner.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace tolvane {
namespace {

std::vector<StartupAgent> agents(const StartupFolderReader& reader, std::set<std::string>& seen) {
    switch (reader.folder.format) {
    case StartupFormat::propertyList:
        return reader.launchAgents();
    case StartupFormat::autostart:
        return reader.autostartEntries(seen);
    case StartupFormat::unit:
        return reader.units();
    }
    return {};
}

void sort(std::vector<StartupAgent>& agents) {
    const Collation collation;
    std::stable_sort(
        agents.begin(), agents.end(), [&](const StartupAgent& a, const StartupAgent& b) {
            return a.runAtLoad != b.runAtLoad ? a.runAtLoad
                                              : collation.compare(a.label, b.label) < 0;
        });
}

}

std::vector<StartupAgent> StartupScanner::scan(const FileURL& home, const FileManager& files,
                                               const StartupPlaces& places,
                                               const std::function<bool()>& isCancelled) {
    std::vector<StartupAgent> all;
    std::set<std::string> seen;
    for (const StartupFolder& folder : places.folders) {
        const FileURL url =
            folder.path.starts_with('/') ? FileURL(folder.path) : home.appending(folder.path);
        std::vector<StartupAgent> found = agents({files, places, url, folder, isCancelled}, seen);
        all.insert(all.end(), std::make_move_iterator(found.begin()),
                   std::make_move_iterator(found.end()));
    }
    sort(all);
    return all;
}

std::vector<std::string> StartupFolderReader::names(const FileURL& inFolder,
                                                    std::string_view extension) const {
    std::vector<std::string> found;
    const auto listing =
        files.openDirectory(inFolder, {.isCancelled = isCancelled, .skipsHidden = true});
    for (std::size_t i = 0; listing && i < (*listing)->count(); ++i) {
        const std::string name((*listing)->name(i));
        if (FileURL(name).pathExtension() == extension) {
            found.push_back(name);
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

std::string withoutExtension(const std::string& fileName) {
    return fileName.substr(0, fileName.rfind('.'));
}

}
