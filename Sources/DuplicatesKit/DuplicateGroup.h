#pragma once

#include <DuplicatesKit/DuplicateFile.h>
#include <HostKit/Digest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace tolvane {

/// Files of identical content.
struct DuplicateGroup {
    /// SHA-256 of the content.
    Digest::Value digest{};
    /// Size of each file.
    Bytes size = 0;
    /// At least two, ascending by path.
    std::vector<DuplicateFile> files;

    /// The digest as 64 lower-case hexadecimal digits.
    std::string hash() const { return hexadecimal(digest); }
    /// The hash, "-" and the size: the same in every scan that meets this content.
    std::string id() const;
    /// What keeping one copy would free if no two of the files were names of one.
    Bytes wastedBytes() const;
    /// What keeping one copy frees: as `wastedBytes()`, but each file is counted once, however many
    /// names of it are in the group.
    Bytes reclaimableBytes() const;
    /// For each of `files` the position of the first one that is the same file by another name; its
    /// own position where there is none before it. Removing a file whose number here is that of a
    /// kept one frees nothing.
    std::vector<std::size_t> firstNames() const;

    friend bool operator==(const DuplicateGroup&, const DuplicateGroup&) = default;
};

}
