#include <DuplicatesKit/EqualFiles.h>

#include <algorithm>

namespace tolvane {
namespace {

void sortByWaste(std::vector<DuplicateGroup>& groups) {
    std::ranges::sort(groups, [](const DuplicateGroup& a, const DuplicateGroup& b) {
        const Bytes waste = a.wastedBytes();
        const Bytes otherWaste = b.wastedBytes();
        return waste != otherWaste ? waste > otherWaste
                                   : a.files.front().id() < b.files.front().id();
    });
}

}

std::vector<DuplicateGroup> EqualFiles::made(const Candidates& files) const {
    std::vector<DuplicateGroup> result;
    result.reserve(groups.size());
    for (const Group& group : groups) {
        DuplicateGroup made{hexadecimal(group.hash), files.size(positions[group.run.start]), {}};
        made.files.reserve(group.run.count());
        for (std::size_t at = group.run.start; at < group.run.end; ++at) {
            made.files.push_back(files.file(positions[at]));
        }
        std::ranges::sort(made.files, {}, &DuplicateFile::id);
        result.push_back(std::move(made));
    }
    sortByWaste(result);
    return result;
}

}
