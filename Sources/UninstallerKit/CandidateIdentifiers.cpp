#include <HostKit/Text.h>
#include <UninstallerKit/CandidateIdentifiers.h>

#include <algorithm>
#include <unordered_set>

namespace tolvane {
namespace {

/// Whether the identifier, or the identifier and more, can be the name of something in a folder.
bool isPartOfName(std::string_view identifier) {
    constexpr std::string_view excluded("/\0", 2);
    return !identifier.empty() && identifier != "." && identifier != ".." &&
           identifier.find_first_of(excluded) == std::string_view::npos;
}

bool isControl(char character) {
    constexpr unsigned char firstPrintable = 0x20;
    constexpr unsigned char deletion = 0x7F;
    const auto byte = static_cast<unsigned char>(character);
    return byte < firstPrintable || byte == deletion;
}

bool passes(std::string_view identifier, const LeftoverGates& gates) {
    const bool isShared = std::find(gates.sharedNames.begin(), gates.sharedNames.end(),
                                    lowercased(identifier)) != gates.sharedNames.end();
    return identifier.size() >= gates.shortest && identifier.size() <= gates.longest &&
           !identifier.starts_with('.') &&
           std::none_of(identifier.begin(), identifier.end(), isControl) && !isShared;
}

}

std::vector<std::string> CandidateIdentifiers::of(const InstalledApp& app,
                                                  const LeftoverTable& table) {
    std::vector<std::string> candidates;
    std::unordered_set<std::string_view> known;
    const auto consider = [&](const std::string& identifier) {
        if (isPartOfName(identifier) && (!table.gates || passes(identifier, *table.gates)) &&
            known.insert(identifier).second) {
            candidates.push_back(identifier);
        }
    };
    consider(app.bundleID);
    std::for_each(app.associatedBundleIDs.begin(), app.associatedBundleIDs.end(), consider);
    return candidates;
}

bool CandidateIdentifiers::mayBegin(std::string_view identifier, const LeftoverTable& table) {
    if (!table.gates) {
        return true;
    }
    const std::size_t dot = identifier.find('.', 1);
    return characterCount(identifier) >= table.gates->shortestBeginning &&
           dot < identifier.size() - 1;
}

}
