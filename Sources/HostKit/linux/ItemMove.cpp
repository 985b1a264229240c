#include <HostKit/linux/ItemMove.h>
#include <HostKit/linux/ItemStatus.h>

#include <fcntl.h>

#include <cerrno>
#include <cstdio>
#include <optional>

namespace tolvane {
namespace {

/// For file systems that cannot refuse to replace: the best they allow.
Result<void, SystemError> moveAfterTest(const ItemPlace& item, const Descriptor& directory,
                                        const std::string& name) {
    const Result<struct statx, SystemError> occupant =
        statusAt(directory.number(), name.c_str(), AT_SYMLINK_NOFOLLOW);
    if (occupant || occupant.error().code != ENOENT) {
        return tl::unexpected(occupant ? SystemError{EEXIST} : occupant.error());
    }
    if (::renameat(item.parent.number(), item.name.c_str(), directory.number(), name.c_str()) !=
        0) {
        return tl::unexpected(SystemError::last());
    }
    return {};
}

Result<void, SystemError> moveOnce(const ItemPlace& item, const Descriptor& directory,
                                   const std::string& name) {
    if (::renameat2(item.parent.number(), item.name.c_str(), directory.number(), name.c_str(),
                    RENAME_NOREPLACE) == 0) {
        return {};
    }
    const SystemError error = SystemError::last();
    const bool isUnsupported = error.code == EINVAL || error.code == ENOSYS;
    return isUnsupported ? moveAfterTest(item, directory, name) : tl::unexpected(error);
}

std::optional<FileIdentity> identityAt(const Descriptor& directory, const std::string& name) {
    const Result<struct statx, SystemError> status =
        statusAt(directory.number(), name.c_str(), AT_SYMLINK_NOFOLLOW);
    return status ? std::optional(identity(*status)) : std::nullopt;
}

}

Result<void, SystemError> moveItem(const ItemPlace& item, const Descriptor& directory,
                                   const std::string& name) {
    const std::optional<FileIdentity> before = identityAt(item.parent, item.name);
    const Result<void, SystemError> moved = moveOnce(item, directory, name);
    // A network file system may move the item, lose the answer and report an error.
    const bool hasArrived = !moved && before && before == identityAt(directory, name) &&
                            !identityAt(item.parent, item.name);
    return hasArrived ? Result<void, SystemError>() : moved;
}

}
