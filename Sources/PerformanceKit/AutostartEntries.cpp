#include <HostKit/ChildProcess.h>
#include <HostKit/DesktopEntry.h>
#include <PerformanceKit/StartupFolderReader.h>

#include <algorithm>
#include <utility>

namespace tolvane {
namespace {

/// Whether the list, which ";" separates, names the desktop that runs.
bool namesDesktop(std::string_view list, const std::vector<std::string>& desktops) {
    while (!list.empty()) {
        const std::string_view name = list.substr(0, list.find(';'));
        if (!name.empty() && std::find(desktops.begin(), desktops.end(), name) != desktops.end()) {
            return true;
        }
        list.remove_prefix(std::min(name.size() + 1, list.size()));
    }
    return false;
}

bool isInstalled(const std::string& program, const StartupPlaces& places) {
    if (program.find('/') != std::string::npos) {
        return program.starts_with('/') && isExecutableFile(FileURL(program));
    }
    return std::any_of(
        places.programFolders.begin(), places.programFolders.end(),
        [&](const FileURL& folder) { return isExecutableFile(folder.appending(program)); });
}

/// Whether the desktop that runs starts it.
bool isStarted(const DesktopEntry& entry, const StartupPlaces& places) {
    const std::optional<std::string> onlyIn = entry.value("OnlyShowIn");
    const std::optional<std::string> notIn = entry.value("NotShowIn");
    const std::optional<std::string> required = entry.value("TryExec");
    return entry.value("Hidden") != "true" && entry.value("X-GNOME-Autostart-enabled") != "false" &&
           (!onlyIn || namesDesktop(*onlyIn, places.desktops)) &&
           !(notIn && namesDesktop(*notIn, places.desktops)) &&
           (!required || isInstalled(*required, places));
}

}

std::vector<StartupAgent> StartupFolderReader::autostartEntries(std::set<std::string>& seen) const {
    std::vector<StartupAgent> agents;
    for (const std::string& name : names(url, "desktop")) {
        if (shouldStop()) {
            break;
        }
        const bool isOverridden = !seen.insert(name).second;
        const FileURL file = url.appending(name);
        if (const std::optional<DesktopEntry> entry = DesktopEntry::read(files, file)) {
            agents.push_back(
                {.label = entry->localized("Name", places.locale).value_or(withoutExtension(name)),
                 .program = entry->program(),
                 .runAtLoad = !isOverridden && isStarted(*entry, places),
                 .url = file,
                 .scope = folder.scope});
        }
    }
    return agents;
}

}
