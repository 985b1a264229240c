#include <DuplicatesKit/Candidates.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

namespace tolvane {
namespace {

constexpr std::size_t textSize = 65536;

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
    const std::string_view kept = keep(name);
    entry.name = kept.data();
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
    folders_.push_back({keep(folder.substr(start)), parent});
}

std::string_view Candidates::keep(std::string_view text) {
    if (text.size() > freeText_) {
        freeText_ = std::max(textSize, text.size());
        texts_.push_back(std::make_unique_for_overwrite<char[]>(freeText_));
    }
    // The newest text is filled from its end, so that what is free needs no second number.
    freeText_ -= text.size();
    char* const start = texts_.back().get() + freeText_;
    std::ranges::copy(text, start);
    return {start, text.size()};
}

FileURL Candidates::url(Position position) const {
    const Entry& entry = entries_[position];
    std::size_t length = 1 + entry.nameLength;
    for (std::uint32_t at = entry.folder; at != noFolder; at = folders_[at].parent) {
        length += folders_[at].path.size();
    }
    std::string path(length, '/');
    length -= entry.nameLength;
    path.replace(length, entry.nameLength, entry.name, entry.nameLength);
    --length;
    for (std::uint32_t at = entry.folder; at != noFolder; at = folders_[at].parent) {
        const std::string_view text = folders_[at].path;
        length -= text.size();
        path.replace(length, text.size(), text);
    }
    return FileURL(std::move(path));
}

DuplicateFile Candidates::file(Position position) const {
    const Entry& entry = entries_[position];
    const bool isKnown = entry.identity != FileIdentity{};
    return {url(position), entry.size, dateOf(entry.modified),
            isKnown ? std::optional(entry.identity) : std::nullopt,
            dateOf(entry.attributesModified)};
}

bool Candidates::isBefore(Position a, Position b) const {
    const Entry& left = entries_[a];
    const Entry& right = entries_[b];
    return std::tie(left.size, left.identity, a) < std::tie(right.size, right.identity, b);
}

bool Candidates::isSameFile(Position a, Position b) const {
    const Entry& left = entries_[a];
    const Entry& right = entries_[b];
    // Some network file systems number their files anew as they please.
    return left.identity == right.identity && left.identity != FileIdentity{} &&
           left.size == right.size && dateOf(left.modified) == dateOf(right.modified) &&
           dateOf(left.attributesModified) == dateOf(right.attributesModified);
}

}
