#include <HostKit/linux/Directories.h>
#include <HostKit/linux/ItemStatus.h>
#include <HostKit/linux/LocatedItem.h>

#include <fcntl.h>
#include <sys/sysmacros.h>

namespace tolvane {
namespace {

/// Opens the directory `below` under an open one; no component may be a link (ENOTDIR).
Result<Descriptor, SystemError> openWithoutLinks(Descriptor directory, std::string_view below) {
    while (!below.empty()) {
        const std::size_t end = below.find('/');
        const std::string name(below.substr(0, end));
        below = end == std::string_view::npos ? std::string_view() : below.substr(end + 1);
        Descriptor next(::openat(directory.number(), name.c_str(),
                                 O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        if (!next.isOpen()) {
            return tl::unexpected(SystemError::last());
        }
        directory = std::move(next);
    }
    return directory;
}

}

dev_t LocatedItem::device() const {
    return makedev(status.stx_dev_major, status.stx_dev_minor);
}

Result<LocatedItem, SystemError> locate(const FileURL& item, const FileURL& within,
                                        const FileURL& proc) {
    const std::string below = pathBelow(item.path(), within.path()).value_or("");
    const bool isStandard = item == item.standardized() && item.path().starts_with('/');
    if (below.empty() || !isStandard || below.find('\0') != std::string::npos) {
        return tl::unexpected(SystemError{EINVAL});
    }
    Result<Descriptor, SystemError> root = openPath(within.path(), O_PATH | O_DIRECTORY);
    if (!root) {
        return tl::unexpected(root.error());
    }
    const std::string rootPath = linklessPath(*root, proc).value_or(within.path());
    const std::size_t nameStart = below.rfind('/') + 1;
    const std::string_view parentBelow =
        nameStart > 1 ? std::string_view(below).substr(1, nameStart - 2) : std::string_view();
    Result<Descriptor, SystemError> parent = openWithoutLinks(std::move(*root), parentBelow);
    if (!parent) {
        return tl::unexpected(parent.error());
    }
    std::string name = below.substr(nameStart);
    const Result<struct statx, SystemError> status =
        statusAt(parent->number(), name.c_str(), AT_SYMLINK_NOFOLLOW);
    if (!status) {
        return tl::unexpected(status.error());
    }
    return LocatedItem{
        {std::move(*parent), std::move(name)}, *status, rootPath == "/" ? below : rootPath + below};
}

}
