#include <Controllers/PurgeableFiles.h>

#include <algorithm>

namespace tolvane {

std::vector<FileNode> purgeableFiles(const ScannedTree& tree, std::size_t limit) {
    const TreeIndex& index = tree.index();
    std::vector<TreeIndex::Position> positions;
    for (TreeIndex::Position position = 0; position < index.count(); ++position) {
        const FileNode& node = index.node(position);
        if (node.kind() == FileNode::Kind::regular && node.isPurgeable()) {
            positions.push_back(position);
        }
    }
    std::stable_sort(positions.begin(), positions.end(), [&](auto a, auto b) {
        return index.totalAllocatedSize(a) > index.totalAllocatedSize(b);
    });
    positions.resize(std::min(positions.size(), limit));
    std::vector<FileNode> files;
    files.reserve(positions.size());
    std::transform(positions.begin(), positions.end(), std::back_inserter(files),
                   [&](auto position) { return index.node(position); });
    return files;
}

}
