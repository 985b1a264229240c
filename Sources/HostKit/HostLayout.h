#pragma once

#include <HostKit/ApplicationPlaces.h>
#include <HostKit/FileURL.h>
#include <HostKit/LeftoverTable.h>
#include <HostKit/MaintenanceTools.h>
#include <HostKit/SnapshotTools.h>
#include <HostKit/StartupPlaces.h>
#include <HostKit/Tool.h>

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane {

using EnvironmentVariables = std::map<std::string, std::string>;

/// Every place, list and table in which one operating system differs from another: a plain record,
/// handed to whatever needs a part of it. Nothing takes a path from anywhere else.
struct HostLayout {
    /// Folders of the current user.
    struct Locations {
        FileURL home;
        /// Holds "Logs" with the application's log and the crash reports.
        FileURL libraryDirectory;
        /// Above all that programs keep for the whole system.
        FileURL systemLibrary;
        FileURL downloads;
        FileURL userDefaultsFile;
        /// The Trash of the volume that the home folder lies on.
        FileURL homeTrash;
        /// Everything below it may be deleted and made again; absent where the system marks files.
        std::optional<FileURL> purgeableFolder;
    };

    struct AccessProbe {
        std::string label;
        FileURL url;
    };
    /// Files that only a process with full access can read, in the order in which they are tried.
    struct Access {
        std::vector<AccessProbe> probes;
    };

    /// What is protected on this system besides the fixed lists.
    struct Protection {
        std::vector<std::string> additionalPrefixes;
        std::vector<std::string> additionalExactPaths;
    };

    struct Exclusions {
        /// Whether the mount table adds to the fixed list of a scan.
        bool usesMountTable = false;
    };

    struct QuickPlace {
        std::string title;
        std::string symbol;
        FileURL url;
    };

    /// Programs of the system, each for what it is used for.
    struct Tools {
        /// Tells which processes listen; takes the same arguments everywhere.
        FileURL lsof;
        /// Prints the number of every process and that of its parent.
        Tool processTree;
        /// Prints pid, kibibytes of memory, percents of a processor and name of every process.
        Tool heavyProcesses = {};
        /// Whether those names are cut, so that the paths of programs are to be put in their place.
        bool cutsProcessNames = false;
    };

    /// Where the system tells about itself; a test points them elsewhere.
    struct Sources {
        FileURL proc;
        FileURL sys;
        FileURL dev = {};
    };

    Locations locations;
    Access access;
    Protection protection;
    Exclusions exclusions;
    ApplicationPlaces applications;
    LeftoverTable leftovers;
    /// Folders of caches, logs, build products, crash reports and what was thrown away, in this
    /// order.
    std::vector<FileURL> junkRoots;
    std::vector<QuickPlace> quickLocations;
    StartupPlaces startup;
    SnapshotTools snapshots;
    MaintenanceTools maintenance;
    Tools tools;
    Sources sources;
    /// The user whose Trash folders are used, by number; absent: the one this process runs as.
    std::optional<std::uint32_t> userID;
    /// Where the home folders really lie, when "/home" is only a link to it ("/var/home").
    std::optional<std::string> homeAlias;

    /// `url` under "/home" when it was named by `homeAlias`; protection knows the homes by that
    /// name.
    FileURL underHome(const FileURL& url) const;
    /// The other way: where a place under "/home" really lies, which is what the system tells of.
    FileURL withoutAlias(const FileURL& url) const;
    /// `url` by the name under which a walk that starts at `root` meets it.
    FileURL asSeenFrom(const FileURL& root, const FileURL& url) const;

    /// macOS. Compiles everywhere, so that its rules are tested everywhere.
    static HostLayout darwin(const FileURL& home);
    /// Systems that follow the freedesktop conventions (XDG Base Directory specification 0.8).
    static HostLayout freedesktop(const FileURL& home, const EnvironmentVariables& environment);
    /// The layout of this machine for the current user.
    static HostLayout current();
};

}
