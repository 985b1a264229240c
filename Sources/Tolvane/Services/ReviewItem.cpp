#include <Services/ReviewItem.h>

namespace tolvane {

ReviewItem reviewItem(const FileNode& node) {
    return {.id = text(node.id()),
            .name = std::string(node.name()),
            .url = node.url(),
            .size = node.totalAllocatedSize(),
            .isDirectory = node.isDirectory()};
}

}
