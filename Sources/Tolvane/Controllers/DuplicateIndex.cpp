#include <DuplicatesKit/PathOrder.h>

#include <Controllers/DuplicateIndex.h>

#include <algorithm>
#include <utility>

namespace tolvane {

DuplicateIndex::DuplicateIndex(DuplicateScanResult result,
                               const std::vector<std::string>& uncertain)
    : result_(std::move(result)) {
    firsts_.reserve(groups().size() + 1);
    for (const DuplicateGroup& group : groups()) {
        add(group, uncertain);
    }
    byPath_ = PathOrder::of(firsts_.back(), [this](Position position) -> std::string_view {
        return file(position).id();
    });
}

void DuplicateIndex::add(const DuplicateGroup& group, const std::vector<std::string>& uncertain) {
    const Position start = firsts_.back();
    for (const std::size_t first : group.firstNames()) {
        const Position original = start + static_cast<Position>(first);
        if (original != originals_.size()) {
            ++nameCounts_.try_emplace(original, 1).first->second;
        }
        originals_.push_back(original);
    }
    for (const DuplicateFile& file : group.files) {
        isUncertain_.push_back(std::binary_search(uncertain.begin(), uncertain.end(), file.id()));
    }
    reclaimable_.push_back(group.reclaimableBytes());
    tolvane::add(allReclaimable_, reclaimable_.back());
    firsts_.push_back(start + static_cast<Position>(group.files.size()));
}

std::uint32_t DuplicateIndex::nameCount(Position original) const {
    const auto found = nameCounts_.find(original);
    return found == nameCounts_.end() ? 1 : found->second;
}

std::size_t DuplicateIndex::groupOf(Position position) const {
    const auto after = std::upper_bound(firsts_.begin(), firsts_.end(), position);
    return static_cast<std::size_t>(after - firsts_.begin()) - 1;
}

const DuplicateFile& DuplicateIndex::file(Position position) const {
    const std::size_t group = groupOf(position);
    return groups()[group].files[position - firsts_[group]];
}

std::optional<DuplicateIndex::Position> DuplicateIndex::find(std::string_view path) const {
    const auto found = std::lower_bound(byPath_.begin(), byPath_.end(), path,
                                        [this](Position position, std::string_view wanted) {
                                            return file(position).id() < wanted;
                                        });
    return found != byPath_.end() && file(*found).id() == path ? std::optional(*found)
                                                               : std::nullopt;
}

}
