#pragma once

#include <HostKit/FileURL.h>
#include <HostKit/Tool.h>

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tolvane {

/// What asks the user for an administrator's rights and then runs one command with them.
struct AdministratorPrompt {
    enum class Kind : std::uint8_t {
        /// Takes a script of one shell command as its last argument.
        appleScript,
        /// Takes a program and its arguments (pkexec(1)); status 126 tells that the user refused.
        polkit
    };

    Kind kind = Kind::appleScript;
    /// With the arguments that stand before the command.
    Tool tool;
};

/// What keeps one kind of index of the contents of the user's files.
struct ContentIndex {
    /// Is there where this kind of index is; its command may be there without.
    FileURL mark;
    /// Deletes the index. A program that it starts may keep its streams open.
    Tool reset;
    /// Has the index made anew; absent where `reset` does that as well.
    std::optional<Tool> start = std::nullopt;
};

/// What the maintenance of a system is done with.
struct MaintenanceTools {
    /// What an administrator's shell starts where the prompt takes a shell command.
    static constexpr std::string_view spotlightTool = "/usr/bin/mdutil";
    static constexpr std::string_view timeMachineTool = "/usr/bin/tmutil";

    AdministratorPrompt prompt;
    /// Empties the cache of resolved host names.
    Tool flushResolver;
    /// Rebuilds the table of which application opens what.
    Tool rebuildRegistry;
    /// Created before that when it is missing.
    std::optional<FileURL> registryFolder = std::nullopt;
    /// Of which the first one that is there is started over, without a prompt. Empty where an
    /// administrator starts over the index of a volume.
    std::vector<ContentIndex> indexes = {};
    /// Run before `purge`, whatever comes of it.
    std::optional<Tool> beforePurge = std::nullopt;
    /// Empties the system's disk buffers, as an administrator.
    Tool purge;

    static MaintenanceTools darwin();
    /// `launchers` is the user's folder of desktop entries.
    static MaintenanceTools freedesktop(const FileURL& launchers);
};

}
