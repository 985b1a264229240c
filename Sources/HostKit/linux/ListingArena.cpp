#include <HostKit/linux/ListingArena.h>

#include <cstring>
#include <limits>

namespace tolvane {

/// Where a name of this length starts: a name never straddles two pieces.
std::size_t ListingArena::reserveName(std::size_t length) {
    const std::size_t left = namePiece - end_.nameBytes % namePiece;
    const std::size_t start = left < length + 1 ? end_.nameBytes + left : end_.nameBytes;
    while (namePieces_.size() <= start / namePiece) {
        namePieces_.push_back(std::make_unique_for_overwrite<char[]>(namePiece));
    }
    return start;
}

bool ListingArena::append(std::string_view name, EntryType type) {
    const std::size_t start = reserveName(name.size());
    if (start > std::numeric_limits<std::uint32_t>::max()) {
        return false;
    }
    char* target = namePieces_[start / namePiece].get() + start % namePiece;
    std::memcpy(target, name.data(), name.size());
    target[name.size()] = '\0';
    if (entryPieces_.size() <= end_.entries / entryPiece) {
        entryPieces_.push_back(std::make_unique_for_overwrite<Entry[]>(entryPiece));
    }
    entryPieces_[end_.entries / entryPiece][end_.entries % entryPiece] = {
        static_cast<std::uint32_t>(start), static_cast<std::uint16_t>(name.size()), type};
    end_ = {end_.entries + 1, start + name.size() + 1};
    return true;
}

}
