#include <CleanupKit/ProtectionPolicy.h>
#include <HostKit/Text.h>

#include <algorithm>

namespace tolvane {
namespace {

template <std::size_t count>
std::vector<std::string> joined(const std::array<std::string_view, count>& defaults,
                                const std::vector<std::string>& additions) {
    std::vector<std::string> paths(defaults.begin(), defaults.end());
    paths.insert(paths.end(), additions.begin(), additions.end());
    return paths;
}

}

ProtectionPolicy::ProtectionPolicy(std::optional<std::vector<std::string>> prefixes,
                                   std::optional<std::vector<std::string>> exactPaths,
                                   const HostLayout::Protection& protection)
    : protectedPrefixes(prefixes ? std::move(*prefixes)
                                 : joined(defaultPrefixes, protection.additionalPrefixes))
    , protectedExactPaths(exactPaths ? std::move(*exactPaths)
                                     : joined(defaultExactPaths, protection.additionalExactPaths)) {
}

ProtectionPolicy::ProtectionPolicy(const HostLayout::Protection& protection)
    : ProtectionPolicy(std::nullopt, std::nullopt, protection) {}

bool ProtectionPolicy::isProtected(const FileURL& url) const {
    const FileURL standardized = url.standardized();
    const std::string& path = standardized.path();
    const auto isPath = [&](const std::string& exact) { return canonicallyEqual(path, exact); };
    const auto covers = [&](const std::string& prefix) { return hasCanonicalPrefix(path, prefix); };
    return std::any_of(protectedExactPaths.begin(), protectedExactPaths.end(), isPath) ||
           std::any_of(protectedPrefixes.begin(), protectedPrefixes.end(), covers);
}

}
