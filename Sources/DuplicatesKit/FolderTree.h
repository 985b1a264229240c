#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace tolvane {

/// Folders as they lie in each other, so that the files in them can be sorted by path although no
/// whole path is ever looked at: in a chain of thousands of folders these are too long.
class FolderTree {
  public:
    using Folder = std::uint32_t;

    static constexpr Folder root = 0;

    /// What there is to sort, at the positions below `count`.
    struct Files {
        std::uint32_t count;
        std::function<Folder(std::uint32_t position)> folder;
        std::function<std::string_view(std::uint32_t position)> name;
    };

    /// The folder to which `path`, of names behind a separator each, leads from `parent`; those of
    /// one walk, in its order. The texts are borrowed.
    Folder enter(Folder parent, std::string_view path);

    /// The positions of the files, ascending by path, byte by byte; none once `isStopped` said so.
    std::vector<std::uint32_t> sorted(const Files& files,
                                      const std::function<bool()>& isStopped) const;

  private:
    struct Node {
        std::string_view name;
        Folder parent;
        /// The one that was entered last; the root where there is none.
        Folder lastChild;
    };

    std::vector<std::uint32_t> starts(const Files& files) const;
    std::vector<std::uint32_t> contents(const Files& files,
                                        std::vector<std::uint32_t> starts) const;

    std::vector<Node> nodes_{Node{{}, root, root}};
};

}
