#include "MadeNodes.h"

namespace tolvane {

FileNode madeFile(const std::string& name, Bytes size) {
    return FileNode(FileURL("/made").appending(name), name, FileNode::Kind::regular, size, size,
                    false, std::nullopt, {}, 0, 0, 0, false);
}

FileNode madeFolder(const std::string& name, std::vector<FileNode> children, Bytes hiddenBytes) {
    return FileNode(FileURL("/made").appending(name), name, FileNode::Kind::directory, 0, 0, false,
                    std::nullopt, std::move(children), hiddenBytes, hiddenBytes == 0 ? 0 : 1, 0,
                    false);
}

FileNode randomTree(std::mt19937& random, int depth) {
    const auto below = [&random](unsigned bound) { return static_cast<int>(random() % bound); };
    std::vector<FileNode> children;
    const int folders = depth > 0 ? below(4) : 0;
    for (int i = 0; i < folders; ++i) {
        children.push_back(randomTree(random, depth - 1));
    }
    const int files = below(4);
    for (int i = 0; i < files; ++i) {
        children.push_back(madeFile("file", below(1000)));
    }
    return madeFolder("folder", std::move(children), below(3));
}

}
