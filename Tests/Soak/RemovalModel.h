#pragma once

#include <CleanupKit/RemovalReceipt.h>
#include <Support/TreeState.h>

#include <map>
#include <string>
#include <vector>

namespace tolvane {

/// What removal and undo must do to a folder and its Trash, told plainly. Paths begin with "/" and
/// are below the folder; items are described as in a `TreeState`.
class RemovalModel {
  public:
    struct Trashed {
        std::string original;
        /// Keyed by the path below the item, "" for itself.
        TreeState content;

        friend bool operator==(const Trashed&, const Trashed&) = default;
    };

    TreeState tree;
    /// Keyed by the name in the Trash.
    std::map<std::string, Trashed> trash;

    bool has(const std::string& path) const { return tree.contains(path); }
    /// The item and all below it.
    TreeState content(const std::string& path) const;
    /// What is left of a choice without repetitions and without what lies in another item of it, in
    /// the order of removal.
    static std::vector<std::string> withoutNested(const std::vector<std::string>& paths);

    void moveToTrash(const std::string& path, const std::string& trashName);
    /// Whether the item can come back to its place.
    bool mayPutBack(const std::string& trashName) const;
    void putBack(const std::string& trashName);

  private:
    bool hasFileAbove(const std::string& path) const;
};

}
