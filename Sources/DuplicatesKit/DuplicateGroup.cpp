#include <DuplicatesKit/DuplicateGroup.h>

#include <algorithm>
#include <map>

namespace tolvane {
namespace {

Bytes wasted(Bytes size, std::size_t copies) {
    return product(size, std::max<std::int64_t>(static_cast<std::int64_t>(copies) - 1, 0));
}

}

std::string DuplicateGroup::id() const {
    return hash() + "-" + std::to_string(size);
}

Bytes DuplicateGroup::wastedBytes() const {
    return wasted(size, files.size());
}

Bytes DuplicateGroup::reclaimableBytes() const {
    const std::vector<std::size_t> names = firstNames();
    std::size_t distinct = 0;
    for (std::size_t position = 0; position < names.size(); ++position) {
        distinct += names[position] == position ? 1 : 0;
    }
    return wasted(size, distinct);
}

std::vector<std::size_t> DuplicateGroup::firstNames() const {
    std::vector<std::size_t> names;
    std::map<FileIdentity, std::size_t> known;
    for (std::size_t position = 0; position < files.size(); ++position) {
        const std::optional<FileIdentity>& identity = files[position].identity;
        names.push_back(identity ? known.try_emplace(*identity, position).first->second : position);
    }
    return names;
}

}
