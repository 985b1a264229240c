#include <HostKit/Text.h>
#include <UninstallerKit/CandidateIdentifiers.h>
#include <UninstallerKit/LeftoverPlaces.h>

#include <utility>

namespace tolvane {

LeftoverPlaces::LeftoverPlaces(const FileURL& home, const FileURL& systemLibrary,
                               LeftoverTable table)
    : table_(std::move(table)) {
    for (const LeftoverRow& row : table_.rows) {
        const FileURL& root = row.root == LeftoverRoot::home ? home : systemLibrary;
        places_.push_back({root.appending(row.folder).standardized(), row});
    }
}

bool LeftoverPlaces::matches(const LeftoverRow& row, std::string_view name,
                             std::string_view identifier) const {
    switch (row.match) {
    case LeftoverMatch::exact:
        return name.size() == identifier.size() + row.ending.size() &&
               name.starts_with(identifier) && name.ends_with(row.ending);
    case LeftoverMatch::begins:
        return CandidateIdentifiers::mayBegin(identifier, table_) &&
               lowercased(name).starts_with(lowercased(identifier));
    case LeftoverMatch::contains:
        return lowercased(name).find(lowercased(identifier)) != std::string::npos;
    }
    return false;
}

std::optional<LeftoverMatch>
LeftoverPlaces::match(const FileURL& item, const std::vector<std::string>& identifiers) const {
    const FileURL folder = item.deletingLastPathComponent();
    const std::string_view name = item.lastPathComponent();
    std::optional<LeftoverMatch> closest;
    for (const Place& place : places_) {
        if (place.folder != folder) {
            continue;
        }
        for (const std::string& identifier : identifiers) {
            if ((!closest || place.row.match < *closest) && matches(place.row, name, identifier)) {
                closest = place.row.match;
            }
        }
    }
    return closest;
}

}
