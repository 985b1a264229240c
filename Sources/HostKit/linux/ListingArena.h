#pragma once

#include <HostKit/FileManager.h>

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace tolvane {

/// The listings of a chain of open directories, one behind the other and cut back from the end.
/// Memory comes in pieces that stay for the next listing, so that a directory of a million entries
/// costs no million allocations and growing never copies.
class ListingArena {
  public:
    /// An end to cut back to.
    struct Mark {
        std::size_t entries = 0;
        std::size_t nameBytes = 0;
    };

    Mark mark() const { return end_; }
    void cutBack(Mark mark) { end_ = mark; }

    /// False when the names exceed what an entry can address (4 GiB).
    bool append(std::string_view name, EntryType type);

    /// Ends with a NUL behind its last byte.
    std::string_view name(std::size_t position) const {
        const Entry& entry = at(position);
        return {namePieces_[entry.nameStart / namePiece].get() + entry.nameStart % namePiece,
                entry.nameLength};
    }
    EntryType type(std::size_t position) const { return at(position).type; }

  private:
    struct Entry {
        std::uint32_t nameStart;
        std::uint16_t nameLength;
        EntryType type;
    };

    static constexpr std::size_t namePiece = 256 * 1024;
    static constexpr std::size_t entryPiece = 32 * 1024;

    const Entry& at(std::size_t position) const {
        return entryPieces_[position / entryPiece][position % entryPiece];
    }
    std::size_t reserveName(std::size_t length);

    std::vector<std::unique_ptr<char[]>> namePieces_;
    std::vector<std::unique_ptr<Entry[]>> entryPieces_;
    Mark end_;
};

}
