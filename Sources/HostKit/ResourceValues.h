#pragma once

#include <HostKit/Checked.h>
#include <HostKit/Date.h>

#include <compare>
#include <cstdint>
#include <optional>

namespace tolvane {

enum class FileType : std::uint8_t { regular, directory, symbolicLink, other };

/// Tells one file from every other on this machine, whatever its names (device and inode number).
struct FileIdentity {
    std::int64_t device = 0;
    std::uint64_t inode = 0;

    friend auto operator<=>(const FileIdentity&, const FileIdentity&) = default;
};

/// The attributes of one item; never those of what a symbolic link leads to. A value that the file
/// system does not know is absent.
struct ResourceValues {
    /// Bytes on disk; absent for a directory.
    std::optional<Bytes> totalFileAllocatedSize;
    /// Length of the content (of a link: of its target's text); absent for a directory.
    std::optional<Bytes> fileSize;
    std::optional<FileType> fileResourceType;
    /// Whether the system or its owner may delete the item at any time and make it again.
    std::optional<bool> isPurgeable;
    std::optional<bool> isSymbolicLink;
    std::optional<bool> isDirectory;
    std::optional<bool> isRegularFile;
    std::optional<Date> contentModificationDate;
    /// When content or attributes were last changed; unlike the other date, nobody can set it.
    std::optional<Date> attributeModificationDate;
    std::optional<FileIdentity> identity;
    /// How many names the item has (hard links).
    std::optional<std::int64_t> linkCount;
};

}
