#include <Controllers/DuplicateSelection.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace tolvane {

void DuplicateSelection::load(std::shared_ptr<const DuplicateIndex> index) {
    index_ = std::move(index);
    clear();
}

std::optional<DuplicateSelection::Position> DuplicateSelection::kept(std::size_t group) const {
    const auto end = ticks_.begin() + index_->end(group);
    const auto found = std::find(ticks_.begin() + index_->first(group), end, 0);
    return found == end ? std::nullopt
                        : std::optional(static_cast<Position>(found - ticks_.begin()));
}

std::vector<DuplicateSelection::Position> DuplicateSelection::selected() const {
    std::vector<Position> selected;
    selected.reserve(count_);
    for (Position position = 0; position < ticks_.size(); ++position) {
        if (isSelected(position)) {
            selected.push_back(position);
        }
    }
    return selected;
}

bool DuplicateSelection::decides(Position position, bool isTicked) {
    const Position original = index_->original(position);
    const std::uint32_t names = index_->nameCount(original);
    if (names == 1) {
        return true;
    }
    std::uint32_t& ticked = tickedNames_[original];
    return (isTicked ? ++ticked : ticked--) == names;
}

void DuplicateSelection::set(Position position, std::size_t group, bool isTicked) {
    if (isSelected(position) == isTicked) {
        return;
    }
    const std::size_t all = index_->end(group) - index_->first(group);
    const Bytes size = decides(position, isTicked) ? index_->groups()[group].size : 0;
    ticks_[position] = isTicked ? 1 : 0;
    if (isTicked) {
        ++count_;
        size_ = sum(size_, size);
        completeGroups_ += ++counts_[group] == all ? 1 : 0;
    } else {
        --count_;
        size_ = difference(size_, size);
        completeGroups_ -= counts_[group]-- == all ? 1 : 0;
    }
}

void DuplicateSelection::toggle(Position position) {
    set(position, index_->groupOf(position), !isSelected(position));
}

void DuplicateSelection::selectCopies(std::size_t group) {
    const Position first = index_->first(group);
    for (Position copy = first + 1; copy < index_->end(group); ++copy) {
        if (index_->original(copy) != first) {
            set(copy, group, true);
        }
    }
}

void DuplicateSelection::selectAllCopies() {
    for (std::size_t group = 0; group < counts_.size(); ++group) {
        selectCopies(group);
    }
}

void DuplicateSelection::keep(Position position) {
    const std::size_t group = index_->groupOf(position);
    const Position original = index_->original(position);
    for (Position copy = index_->first(group); copy < index_->end(group); ++copy) {
        set(copy, group, index_->original(copy) != original);
    }
}

void DuplicateSelection::keep(std::size_t group, Keep which) {
    const std::vector<DuplicateFile>& files = index_->groups()[group].files;
    const auto age = [which](const DuplicateFile& file) {
        const Date date = file.modified.value_or(0);
        const Date later = which == Keep::newest ? -date : date;
        return file.modified ? later : std::numeric_limits<Date>::max();
    };
    const auto found = std::min_element(
        files.begin(), files.end(),
        [&age](const DuplicateFile& a, const DuplicateFile& b) { return age(a) < age(b); });
    keep(index_->first(group) + static_cast<Position>(found - files.begin()));
}

void DuplicateSelection::keepOfAll(Keep which) {
    for (std::size_t group = 0; group < counts_.size(); ++group) {
        keep(group, which);
    }
}

void DuplicateSelection::keepFolder(const FileURL& folder) {
    const std::string& place = folder.path();
    for (std::size_t group = 0; group < counts_.size(); ++group) {
        const std::vector<DuplicateFile>& files = index_->groups()[group].files;
        const Position first = index_->first(group);
        // Whether each file, by its first name, is one that stays.
        std::vector<bool> stays(files.size());
        bool isConcerned = false;
        for (std::size_t i = 0; i < files.size(); ++i) {
            if (place == "/" || liesWithin(files[i].id(), place)) {
                isConcerned = true;
                stays[index_->original(first + static_cast<Position>(i)) - first] = true;
            }
        }
        for (Position copy = first; isConcerned && copy < index_->end(group); ++copy) {
            set(copy, group, !stays[index_->original(copy) - first]);
        }
    }
}

void DuplicateSelection::clear(std::size_t group) {
    for (Position position = index_->first(group); position < index_->end(group); ++position) {
        set(position, group, false);
    }
}

void DuplicateSelection::clear() {
    ticks_.assign(index_ ? index_->fileCount() : 0, 0);
    counts_.assign(index_ ? index_->groups().size() : 0, 0);
    count_ = 0;
    completeGroups_ = 0;
    size_ = 0;
    tickedNames_.clear();
}

}
