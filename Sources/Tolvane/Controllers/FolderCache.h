#pragma once

#include <ArborviewKit/ScannedTree.h>
#include <ScanKit/FileNode.h>

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <unordered_map>

namespace tolvane {

/// The folders last loaded in detail, by path. Each is the node that stands at that path in the
/// current tree, so that what is taken from here can be selected and found there.
class FolderCache {
  public:
    static constexpr std::size_t capacity = 8;

    std::optional<FileNode> find(const FileURL& url) const;
    /// Adds a folder of `tree` that has just been loaded in detail as the newest. What was cached
    /// below it is older and goes; what was cached above it is taken from `tree` anew. Beyond the
    /// capacity the oldest goes.
    void insert(const ScannedTree& tree, const FileNode& folder);
    /// Makes a cached folder the newest.
    void touch(const FileURL& url);
    void clear();

  private:
    void remove(const std::string& path);

    std::unordered_map<std::string, FileNode> folders_;
    /// Oldest first.
    std::deque<std::string> cacheOrder_;
};

}
