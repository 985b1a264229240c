#include <DuplicatesKit/Candidates.h>
#include <DuplicatesKit/FolderTree.h>
#include <DuplicatesKit/Runs.h>
#include <DuplicatesKit/SortInPieces.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace tolvane {
namespace {

Date numberOf(const std::optional<Date>& date) {
    return date.value_or(std::numeric_limits<Date>::quiet_NaN());
}

std::optional<Date> dateOf(Date number) {
    return std::isnan(number) ? std::nullopt : std::optional(number);
}

}

void Candidates::add(std::string_view folder, std::string_view name, Bytes size,
                     const ResourceValues& values) {
    // The separator before the name is not kept. "/" ends in it, and so may a root of the settings.
    const std::string_view path = folder.substr(0, folder.size() - (folder.ends_with('/') ? 1 : 0));
    if (levels_.empty() || current_ != path) {
        enter(path);
    }
    Entry entry{};
    const std::string_view kept = names_.keep(name);
    entry.start = kept.data();
    entry.nameLength = static_cast<std::uint32_t>(kept.size()) & 0x7FFFFFFF;
    entry.hasOneName = values.linkCount == 1 ? 1 : 0;
    entry.folder = levels_.back().folder;
    entry.size = size;
    entry.modified = numberOf(values.contentModificationDate);
    entry.attributesModified = numberOf(values.attributeModificationDate);
    entry.identity = values.identity.value_or(FileIdentity{});
    entries_.push_back(entry);
}

/// Only what a folder's path adds to that of a folder above it is kept: in a chain of thousands of
/// folders whole paths would fill the memory.
void Candidates::enter(std::string_view folder) {
    const auto isAbove = [&](const Level& level) {
        const std::string_view path = std::string_view(current_).substr(0, level.pathLength);
        return folder.starts_with(path) &&
               (folder.size() == path.size() || folder[path.size()] == '/');
    };
    while (!levels_.empty() && !isAbove(levels_.back())) {
        levels_.pop_back();
    }
    current_ = folder;
    const std::size_t start = levels_.empty() ? 0 : levels_.back().pathLength;
    if (!levels_.empty() && start == folder.size()) {
        return;
    }
    const std::uint32_t parent = levels_.empty() ? noFolder : levels_.back().folder;
    levels_.push_back({folder.size(), static_cast<std::uint32_t>(folders_.size())});
    folders_.push_back({folderTexts_.keep(folder.substr(start)), parent});
}

void Candidates::keepSharingSize(const std::function<bool()>& isCancelled) {
    if (!sortInPieces(entries_.begin(), entries_.end(), isBefore, isCancelled)) {
        entries_.clear();
    }
    // A file that has one name and was met twice is mounted a second time.
    const auto isMetAgain = [](const Entry& a, const Entry& b) {
        return isSameFile(a, b) && b.hasOneName != 0;
    };
    entries_.erase(std::unique(entries_.begin(), entries_.end(), isMetAgain), entries_.end());
    removeSingles(entries_, [](const Entry& a, const Entry& b) { return a.size == b.size; });
    sortByPath(isCancelled);
}

/// To compare a million paths takes too long once somebody waits for what they are compared for.
void Candidates::sortByPath(const std::function<bool()>& isCancelled) {
    const std::vector<Position> positions = sortedByPath(isCancelled);
    // Put back into the pieces that are there: new ones would leave holes in memory.
    std::vector<Entry> sorted;
    sorted.reserve(positions.size());
    ranks_.resize(positions.size());
    PackedTexts names;
    for (const Position position : positions) {
        ranks_[position] = static_cast<Rank>(sorted.size());
        Entry& entry = sorted.emplace_back(entries_[position]);
        entry.start = names.keep(entry.name()).data();
    }
    entries_.assign(sorted.begin(), sorted.end());
    names_ = std::move(names);
}

std::vector<Candidates::Position>
Candidates::sortedByPath(const std::function<bool()>& isCancelled) const {
    FolderTree tree;
    std::vector<FolderTree::Folder> places;
    places.reserve(folders_.size());
    for (const Folder& folder : folders_) {
        places.push_back(tree.enter(
            folder.parent == noFolder ? FolderTree::root : places[folder.parent], folder.path));
    }
    return tree.sorted({static_cast<Position>(entries_.size()),
                        [&](Position position) { return places[entries_[position].folder]; },
                        [&](Position position) { return entries_[position].name(); }},
                       isCancelled);
}

FileURL Candidates::url(Position position) const {
    std::string path;
    makePath(entry(position), path);
    return FileURL(std::move(path));
}

void Candidates::makePath(const Entry& entry, std::string& path) const {
    std::size_t length = 1 + entry.nameLength;
    for (std::uint32_t at = entry.folder; at != noFolder; at = folders_[at].parent) {
        length += folders_[at].path.size();
    }
    path.assign(length, '/');
    length -= entry.nameLength;
    path.replace(length, entry.nameLength, entry.name());
    --length;
    for (std::uint32_t at = entry.folder; at != noFolder; at = folders_[at].parent) {
        const std::string_view text = folders_[at].path;
        length -= text.size();
        path.replace(length, text.size(), text);
    }
}

DuplicateFile Candidates::file(const Entry& entry) const {
    const bool isKnown = entry.identity != FileIdentity{};
    std::string path;
    makePath(entry, path);
    return {FileURL(std::move(path)), entry.size, dateOf(entry.modified),
            isKnown ? std::optional(entry.identity) : std::nullopt,
            dateOf(entry.attributesModified)};
}

bool Candidates::isSameFile(Position a, Position b) const {
    return isSameFile(entry(a), entry(b));
}

bool Candidates::isBefore(const Entry& a, const Entry& b) {
    if (a.size != b.size) {
        return a.size > b.size;
    }
    if (a.identity != b.identity) {
        return a.identity < b.identity;
    }
    return a.folder != b.folder ? a.folder < b.folder : a.name() < b.name();
}

bool Candidates::isSameFile(const Entry& a, const Entry& b) {
    // Some network file systems number their files anew as they please.
    return a.identity == b.identity && a.identity != FileIdentity{} && a.size == b.size &&
           dateOf(a.modified) == dateOf(b.modified) &&
           dateOf(a.attributesModified) == dateOf(b.attributesModified);
}

void Candidates::keep(std::vector<Rank> ranks) {
    ranks_ = std::vector<Rank>();
    if (ranks.size() == entries_.size() && std::ranges::is_sorted(ranks)) {
        return;
    }
    std::deque<Entry> kept;
    for (const Rank rank : ranks) {
        kept.push_back(entries_[rank]);
    }
    entries_ = std::move(kept);
}

DuplicateFile Candidates::takeFirst() {
    DuplicateFile first = file(entries_.front());
    entries_.pop_front();
    return first;
}

}
