#include <DuplicatesKit/EqualFiles.h>

#include <algorithm>
#include <deque>
#include <utility>

namespace tolvane {

std::vector<DuplicateGroup> EqualFiles::made(Candidates candidates) && {
    std::deque<Group> left;
    std::vector<Candidates::Rank> sorted;
    sorted.reserve(files.size());
    for (const std::uint32_t index : order()) {
        const Group& group = left.emplace_back(groups[index]);
        const auto start = files.begin() + group.start;
        sorted.insert(sorted.end(), start, start + group.count);
    }
    // Not by braces, which would keep the memory.
    files = std::vector<Candidates::Rank>();
    groups = std::vector<Group>();
    candidates.keep(std::move(sorted));
    std::vector<DuplicateGroup> made;
    made.reserve(left.size());
    for (; !left.empty(); left.pop_front()) {
        std::vector<DuplicateFile>& equal =
            made.emplace_back(DuplicateGroup{left.front().digest, left.front().size, {}}).files;
        equal.reserve(left.front().count);
        while (equal.size() < left.front().count) {
            equal.push_back(candidates.takeFirst());
        }
    }
    return made;
}

std::vector<std::uint32_t> EqualFiles::order() const {
    struct Standing {
        Bytes wasted;
        Candidates::Rank first;
        std::uint32_t group;
    };
    std::vector<Standing> standings;
    standings.reserve(groups.size());
    for (const Group& group : groups) {
        standings.push_back({product(group.size, std::int64_t(group.count) - 1), files[group.start],
                             static_cast<std::uint32_t>(standings.size())});
    }
    std::sort(standings.begin(), standings.end(), [](const Standing& a, const Standing& b) {
        return a.wasted != b.wasted ? a.wasted > b.wasted : a.first < b.first;
    });
    std::vector<std::uint32_t> order;
    order.reserve(standings.size());
    for (const Standing& standing : standings) {
        order.push_back(standing.group);
    }
    return order;
}

}
