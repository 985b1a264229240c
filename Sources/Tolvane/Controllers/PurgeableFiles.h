#pragma once

#include <ArborviewKit/ScannedTree.h>

#include <cstddef>
#include <vector>

namespace tolvane {

/// The regular files of `tree` that the system may reclaim by itself, largest first, equal ones in
/// the order of the tree; at most `limit`.
std::vector<FileNode> purgeableFiles(const ScannedTree& tree, std::size_t limit);

}
