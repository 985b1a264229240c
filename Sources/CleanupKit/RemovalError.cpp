#include <CleanupKit/RemovalError.h>

#include <utility>

namespace tolvane {

RemovalError RemovalError::protectedPath(std::string path) {
    return {Case::protectedPath, std::move(path), {}};
}

RemovalError RemovalError::outsideScanRoot(std::string path) {
    return {Case::outsideScanRoot, std::move(path), {}};
}

RemovalError RemovalError::isScanRoot(std::string path) {
    return {Case::isScanRoot, std::move(path), {}};
}

RemovalError RemovalError::missing(std::string path) {
    return {Case::missing, std::move(path), {}};
}

RemovalError RemovalError::trashFailed(std::string path, std::string reason) {
    return {Case::trashFailed, std::move(path), std::move(reason)};
}

RemovalError RemovalError::restoreFailed(std::string path, std::string reason) {
    return {Case::restoreFailed, std::move(path), std::move(reason)};
}

std::string RemovalError::description() const {
    switch (kind) {
    case Case::protectedPath:
        return "Protected path: " + path;
    case Case::outsideScanRoot:
        return "Outside the scanned folder: " + path;
    case Case::isScanRoot:
        return "Refusing to remove the scanned root: " + path;
    case Case::missing:
        return "Item no longer exists: " + path;
    case Case::trashFailed:
        return "Could not move " + path + " to Trash: " + reason;
    case Case::restoreFailed:
        return "Could not restore " + path + ": " + reason;
    }
    return {};
}

}
