#include <HostKit/MoveRights.h>
#include <HostKit/linux/ItemStatus.h>
#include <HostKit/linux/LongPath.h>

#include <fcntl.h>
#include <unistd.h>

#include <string>

namespace tolvane {
namespace {

bool isLocked(const struct statx& status) {
    return (status.stx_attributes & (STATX_ATTR_IMMUTABLE | STATX_ATTR_APPEND)) != 0;
}

/// In a sticky folder only the owners of folder or item may take the item out.
bool isGuarded(const struct statx& folder, const struct statx& item) {
    const uid_t user = ::geteuid();
    return (folder.stx_mode & S_ISVTX) != 0 && user != 0 && user != folder.stx_uid &&
           user != item.stx_uid;
}

bool isWritable(const ItemPlace& place, const std::string& name, int mode) {
    return ::faccessat(place.parent.number(), name.c_str(), mode, AT_EACCESS) == 0;
}

}

bool mayBeMoved(const FileURL& item) {
    const Result<ItemPlace, SystemError> place = openParent(item.path());
    if (!place) {
        return false;
    }
    const int parent = place->parent.number();
    const Result<struct statx, SystemError> folder = statusAt(parent, "", AT_EMPTY_PATH);
    const Result<struct statx, SystemError> status =
        statusAt(parent, place->name.c_str(), AT_SYMLINK_NOFOLLOW);
    if (!folder || !status || isLocked(*folder) || isLocked(*status) ||
        isGuarded(*folder, *status)) {
        return false;
    }
    // The system writes to a folder that gets another parent.
    const bool isFolder = fileType(*status) == FileType::directory;
    return isWritable(*place, ".", W_OK | X_OK) &&
           (!isFolder || isWritable(*place, place->name, W_OK));
}

}
