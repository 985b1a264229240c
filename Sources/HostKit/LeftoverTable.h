#pragma once

#include <HostKit/FileURL.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tolvane {

enum class LeftoverRoot : std::uint8_t { home, systemLibrary };
enum class LeftoverMatch : std::uint8_t { exact, begins, contains };

/// One place in which applications leave things behind.
struct LeftoverRow {
    LeftoverRoot root;
    /// Below the root.
    std::string folder;
    /// How the name of what is left relates to an identifier of the application.
    LeftoverMatch match;
    /// Of an exact name: what follows the identifier.
    std::string ending;
    /// For people.
    std::string kind;
};

/// Which identifiers are looked for at all, where what applications leave lies among what all of
/// them share.
struct LeftoverGates {
    /// Bytes of an identifier.
    std::size_t shortest;
    std::size_t longest;
    /// Characters of an identifier whose longer names count too; it must also have a "." inside.
    std::size_t shortestBeginning;
    /// Names of folders that applications share, in small letters.
    std::vector<std::string> sharedNames;
    /// An identifier whose launcher lies in one of these belongs to another installation as well.
    std::vector<FileURL> otherLaunchers;
};

/// Where the leftovers of an application are looked for, in this order.
struct LeftoverTable {
    std::vector<LeftoverRow> rows;
    /// Absent where nothing but applications uses those places.
    std::optional<LeftoverGates> gates;

    /// The folders of one user that the XDG Base Directory specification 0.8 names.
    struct UserFolders {
        FileURL home;
        FileURL data;
        FileURL config;
        FileURL cache;
        FileURL state;
    };

    static LeftoverTable darwin();
    /// Folders of the user that lie outside the home folder have no rows.
    static LeftoverTable freedesktop(const UserFolders& folders,
                                     std::vector<FileURL> otherLaunchers);
};

}
