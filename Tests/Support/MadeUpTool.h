#pragma once

#include <HostKit/Tool.h>
#include <Support/TemporaryHome.h>

#include <filesystem>
#include <string>

namespace tolvane {

/// A tool that does what a test wants: a script of the shell, "$@" being its arguments.
inline FileURL madeUpTool(const TemporaryHome& home, const std::string& script,
                          const std::string& name = "tool") {
    const FileURL file = home.write(name, "#!/bin/sh\n" + script + "\n");
    std::filesystem::permissions(file.path(), std::filesystem::perms::owner_all |
                                                  std::filesystem::perms::group_exec |
                                                  std::filesystem::perms::others_exec);
    return file;
}

}
