#pragma once

#include <HostKit/FileManager.h>
#include <HostKit/StartupPlaces.h>
#include <PerformanceKit/StartupAgent.h>

#include <functional>
#include <vector>

namespace tolvane {

/// Lists what is started at log-in and at boot. Only reads files; callable from any thread.
namespace StartupScanner {

/// Those that are started at once before the others, each of both by label in the order of the
/// user's language. Folders and files that cannot be read or hold something else are left out.
/// `isCancelled` is asked before each file; then the result is of no use.
std::vector<StartupAgent> scan(const FileURL& home, const FileManager& files,
                               const StartupPlaces& places,
                               const std::function<bool()>& isCancelled = {});

}

}
