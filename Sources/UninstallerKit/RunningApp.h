#pragma once

#include <HostKit/FileManager.h>
#include <UninstallerKit/InstalledApp.h>

#include <string>
#include <vector>

namespace tolvane {

/// Whether one of the `executables`, the paths of the programs that processes run, is the
/// application or lies in it. An application whose program another one interprets goes unseen.
bool isRunning(const InstalledApp& app, const FileManager& files,
               const std::vector<std::string>& executables);

}
