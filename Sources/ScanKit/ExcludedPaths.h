#pragma once

#include <HostKit/FileURL.h>

#include <string>
#include <string_view>
#include <vector>

namespace tolvane {

/// Which paths below one folder are excluded. Follows a walk downwards name by name, so that most
/// folders, below which nothing is excluded, cost no comparison of paths. Borrows the prefixes'
/// text.
class ExcludedPaths {
  public:
    /// A path is excluded when it equals a prefix or begins with one followed by "/" (the folder's
    /// path standardised, the prefixes as they stand).
    static ExcludedPaths below(const FileURL& folder, const std::vector<std::string>& prefixes);

    /// Whether the item with this name in the folder is excluded.
    bool contains(std::string_view name) const;
    /// The same for a folder of this name in the folder.
    ExcludedPaths inside(std::string_view name) const;

  private:
    /// All of the folder's content is excluded.
    bool everything_ = false;
    /// What is left of the prefixes that lie below the folder.
    std::vector<std::string_view> rests_;
};

}
