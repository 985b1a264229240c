#include <HostKit/TrashInfo.h>
#include <HostKit/linux/Contents.h>
#include <HostKit/linux/ItemMove.h>
#include <HostKit/linux/ItemStatus.h>
#include <HostKit/linux/TrashFolder.h>

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <utility>

namespace tolvane {
namespace {

/// Others may take a name between the look and the attempt, but not for ever.
constexpr int maximumAttempts = 1000;

bool exists(const Descriptor& directory, const std::string& name) {
    return statusAt(directory.number(), name.c_str(), AT_SYMLINK_NOFOLLOW).has_value();
}

Result<void, SystemError> writeInfo(Descriptor file, std::string_view info) {
    const Result<void, SystemError> written = writeContents(file, info);
    const bool isClosed = ::close(file.release()) == 0;
    // A network file system may find out only here that there is no room.
    return written && !isClosed ? tl::unexpected(SystemError::last()) : written;
}

}

Result<Descriptor, SystemError> ownDirectory(const Descriptor& parent, const std::string& name,
                                             uid_t user) {
    if (::mkdirat(parent.number(), name.c_str(), 0700) != 0 && errno != EEXIST) {
        return tl::unexpected(SystemError::last());
    }
    Descriptor directory(
        ::openat(parent.number(), name.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status;
    if (!directory.isOpen() || ::fstat(directory.number(), &status) != 0) {
        return tl::unexpected(SystemError::last());
    }
    if (status.st_uid != user) {
        return tl::unexpected(SystemError{EPERM});
    }
    return directory;
}

void removeInfoFile(const Descriptor& info, std::string_view trashName) {
    // A file that cannot be removed tells of an item that is not there: readers pass over it.
    static_cast<void>(::unlinkat(info.number(), trashInfoName(trashName).c_str(), 0));
}

TrashFolder::TrashFolder(Descriptor files, Descriptor info)
    : files_(std::move(files))
    , info_(std::move(info)) {}

Result<TrashFolder, SystemError> TrashFolder::open(const Descriptor& trash, uid_t user) {
    Result<Descriptor, SystemError> files = ownDirectory(trash, "files", user);
    if (!files) {
        return tl::unexpected(files.error());
    }
    Result<Descriptor, SystemError> info = ownDirectory(trash, "info", user);
    if (!info) {
        return tl::unexpected(info.error());
    }
    return TrashFolder(std::move(*files), std::move(*info));
}

Result<std::string, SystemError> TrashFolder::receive(const ItemPlace& item,
                                                      std::string_view originalPath) const {
    const std::string info = TrashInfo{std::string(originalPath), deletionDate(now())}.text();
    unsigned number = 1;
    for (int attempt = 0; attempt < maximumAttempts; ++attempt) {
        std::string name = trashName(item.name, number);
        const Result<void, SystemError> received = receiveAs(name, item, info);
        if (received) {
            return name;
        }
        if (received.error().code != EEXIST) {
            return tl::unexpected(received.error());
        }
        number = freeNumber(item.name, number);
    }
    return tl::unexpected(SystemError{EEXIST});
}

Result<void, SystemError> TrashFolder::receiveAs(const std::string& trashName,
                                                 const ItemPlace& item,
                                                 std::string_view info) const {
    Descriptor file(::openat(info_.number(), trashInfoName(trashName).c_str(),
                             O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600));
    if (!file.isOpen()) {
        return tl::unexpected(SystemError::last());
    }
    Result<void, SystemError> result = exists(files_, trashName)
                                           ? tl::unexpected(SystemError{EEXIST})
                                           : writeInfo(std::move(file), info);
    if (result) {
        result = moveItem(item, files_, trashName);
    }
    if (!result) {
        removeInfoFile(info_, trashName);
    }
    return result;
}

bool TrashFolder::isTaken(const std::string& trashName) const {
    return exists(files_, trashName) || exists(info_, trashInfoName(trashName));
}

/// The number behind a taken one, found without trying every name: a Trash may hold thousands of
/// items that were all called the same.
unsigned TrashFolder::freeNumber(std::string_view name, unsigned taken) const {
    unsigned step = 1;
    while (isTaken(trashName(name, taken + step))) {
        taken += step;
        step *= 2;
    }
    unsigned free = taken + step;
    while (free - taken > 1) {
        const unsigned middle = taken + (free - taken) / 2;
        (isTaken(trashName(name, middle)) ? taken : free) = middle;
    }
    return free;
}

}
