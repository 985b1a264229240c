#pragma once

#include <HostKit/FileURL.h>
#include <HostKit/Result.h>

#include <memory>
#include <optional>
#include <string>

namespace tolvane {

struct HostLayout;

/// Moves items into the Trash of their volume and back, always by one rename: an item is at its
/// place or in the Trash, never in both, never copied. Safe to share between threads.
class Trash {
  public:
    virtual ~Trash() = default;

    /// Moves `item` (standardised) and gives its place in the Trash; absent when its volume has no
    /// Trash (nothing moved). `within` is the folder the user chose, which contains `item`; below
    /// it no symbolic link is followed on the way to `item`. The error is the reason, for people.
    virtual Result<std::optional<FileURL>, std::string> move(const FileURL& item,
                                                             const FileURL& within) const = 0;
    /// Moves `trashed` back to `original`, folders in between made; never overwrites.
    virtual Result<void, std::string> putBack(const FileURL& trashed,
                                              const FileURL& original) const = 0;
};

/// This machine's Trash; its places come from `layout`.
std::shared_ptr<const Trash> systemTrash(const HostLayout& layout);

}
