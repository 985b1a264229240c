#include <UninstallerKit/RunningApp.h>

#include <algorithm>

namespace tolvane {

bool isRunning(const InstalledApp& app, const FileManager& files,
               const std::vector<std::string>& executables) {
    // Processes tell of their programs without links.
    const FileURL bundle = files.resolvingLinks(app.url);
    return std::any_of(executables.begin(), executables.end(), [&](const std::string& executable) {
        return liesWithin(executable, bundle.path());
    });
}

}
