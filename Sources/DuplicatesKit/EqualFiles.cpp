#include <DuplicatesKit/EqualFiles.h>
#include <DuplicatesKit/PathOrder.h>
#include <DuplicatesKit/Runs.h>

#include <algorithm>
#include <utility>

namespace tolvane {
namespace {

void sortByWaste(std::vector<DuplicateGroup>& groups) {
    std::ranges::sort(groups, std::greater<>(), &DuplicateGroup::wastedBytes);
    const auto isAlike = [](const DuplicateGroup& a, const DuplicateGroup& b) {
        return a.wastedBytes() == b.wastedBytes();
    };
    for (std::size_t start = 0; start < groups.size();) {
        const Run run = runAt(groups, start, groups.size(), isAlike);
        start = run.end;
        sortByPath(std::span(groups).subspan(run.start, run.count()),
                   [](const DuplicateGroup& group) -> const std::string& {
                       return group.files.front().id();
                   });
    }
}

}

std::vector<DuplicateGroup> EqualFiles::made(Candidates candidates) && {
    candidates = std::move(candidates).arranged(std::exchange(positions, {}));
    for (std::size_t at = groups.size(); at > 0; --at) {
        std::vector<DuplicateFile>& files = groups[at - 1].files;
        const std::size_t start = at > 1 ? ends[at - 2] : 0;
        files.reserve(candidates.count() - start);
        while (candidates.count() > start) {
            files.push_back(candidates.takeLast());
        }
        sortByPath(std::span(files), &DuplicateFile::id);
    }
    sortByWaste(groups);
    return std::move(groups);
}

}
