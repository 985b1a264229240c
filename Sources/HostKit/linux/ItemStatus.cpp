#include <HostKit/linux/ItemStatus.h>
#include <HostKit/linux/LongPath.h>

#include <fcntl.h>
#include <sys/sysmacros.h>

namespace tolvane {
namespace {

constexpr Bytes blockSize = 512;
constexpr double nanosecond = 1e-9;

Result<struct statx, SystemError> statusOfPath(std::string_view path, int followFlag) {
    Result<ItemPlace, SystemError> place = openParent(path);
    if (!place) {
        return tl::unexpected(place.error());
    }
    return statusAt(place->parent.number(), place->name.c_str(), followFlag);
}

Date date(const struct statx_timestamp& time) {
    return static_cast<Date>(time.tv_sec) + static_cast<Date>(time.tv_nsec) * nanosecond;
}

}

Result<struct statx, SystemError> statusAt(int directory, const char* name, int additionalFlags) {
    struct statx status;
    const int flags = AT_NO_AUTOMOUNT | AT_STATX_DONT_SYNC | additionalFlags;
    if (::statx(directory, name, flags, STATX_BASIC_STATS | STATX_MNT_ID, &status) != 0) {
        return tl::unexpected(SystemError::last());
    }
    return status;
}

Result<struct statx, SystemError> statusOf(std::string_view path) {
    return statusOfPath(path, AT_SYMLINK_NOFOLLOW);
}

Result<struct statx, SystemError> targetStatusOf(std::string_view path) {
    return statusOfPath(path, 0);
}

FileType fileType(const struct statx& status) {
    switch (status.stx_mode & S_IFMT) {
    case S_IFREG:
        return FileType::regular;
    case S_IFDIR:
        return FileType::directory;
    case S_IFLNK:
        return FileType::symbolicLink;
    default:
        return FileType::other;
    }
}

FileIdentity identity(const struct statx& status) {
    return {static_cast<std::int64_t>(makedev(status.stx_dev_major, status.stx_dev_minor)),
            status.stx_ino};
}

ResourceValues resourceValues(const struct statx& status, bool isPurgeable) {
    ResourceValues values;
    const FileType type = fileType(status);
    if (type != FileType::directory) {
        values.totalFileAllocatedSize = product(static_cast<Bytes>(status.stx_blocks), blockSize);
        values.fileSize = static_cast<Bytes>(status.stx_size);
    }
    values.fileResourceType = type;
    values.isPurgeable = isPurgeable && (type == FileType::regular || type == FileType::directory);
    values.isSymbolicLink = type == FileType::symbolicLink;
    values.isDirectory = type == FileType::directory;
    values.isRegularFile = type == FileType::regular;
    values.contentModificationDate = date(status.stx_mtime);
    values.attributeModificationDate = date(status.stx_ctime);
    values.identity = identity(status);
    values.linkCount = status.stx_nlink;
    return values;
}

}
