#include <ScanKit/ExcludedPaths.h>

namespace tolvane {
namespace {

/// What is left of `prefix` behind `folder` and the separator; empty when it does not lie below.
std::string_view rest(std::string_view prefix, std::string_view folder) {
    if (folder == "/") {
        return prefix.starts_with('/') ? prefix.substr(1) : std::string_view();
    }
    const bool liesBelow = liesWithin(prefix, folder) && prefix.size() > folder.size();
    return liesBelow ? prefix.substr(folder.size() + 1) : std::string_view();
}

}

ExcludedPaths ExcludedPaths::below(const FileURL& folder,
                                   const std::vector<std::string>& prefixes) {
    const std::string path = folder.standardized().path();
    ExcludedPaths excluded;
    for (const std::string& prefix : prefixes) {
        // Everything begins with the empty prefix and a separator.
        if (prefix.empty() || (prefix != "/" && liesWithin(path, prefix))) {
            excluded.everything_ = true;
        } else if (const std::string_view left = rest(prefix, path); !left.empty()) {
            excluded.rests_.push_back(left);
        }
    }
    return excluded;
}

bool ExcludedPaths::contains(std::string_view name) const {
    if (everything_) {
        return true;
    }
    for (const std::string_view left : rests_) {
        if (left == name) {
            return true;
        }
    }
    return false;
}

ExcludedPaths ExcludedPaths::inside(std::string_view name) const {
    ExcludedPaths excluded;
    excluded.everything_ = everything_;
    for (const std::string_view left : rests_) {
        if (const std::string_view further = rest(left, name); !further.empty()) {
            excluded.rests_.push_back(further);
        }
    }
    return excluded;
}

}
