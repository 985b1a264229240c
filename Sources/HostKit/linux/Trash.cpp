#include <HostKit/HostLayout.h>
#include <HostKit/Trash.h>
#include <HostKit/TrashInfo.h>
#include <HostKit/linux/Contents.h>
#include <HostKit/linux/Directories.h>
#include <HostKit/linux/ItemMove.h>
#include <HostKit/linux/ItemStatus.h>
#include <HostKit/linux/LocatedItem.h>
#include <HostKit/linux/Mounts.h>
#include <HostKit/linux/TrashFolder.h>
#include <HostKit/linux/TrashRules.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>
#include <vector>

namespace tolvane {
namespace {

constexpr std::size_t maximumInfoSize = 1U << 20U;

/// A Trash that the item may go to.
struct Candidate {
    enum class Kind { home, shared, personal };

    Kind kind;
    FileURL url;
    /// The mount that holds it; empty for the home Trash.
    std::string mountPoint;
    /// What the info file is to say of the item's place.
    std::string recordedPath;
};

/// Whether a missing folder could have been made but for a fault of the disk or of this process. It
/// is worth telling when no other Trash takes the item; that a Trash is not there is no fault.
bool isFault(const SystemError& error) {
    switch (error.code) {
    case ENOSPC:
    case EDQUOT:
    case EROFS:
    case EIO:
    case EMFILE:
    case ENFILE:
    case ENOMEM:
        return true;
    default:
        return false;
    }
}

const Mount* mountOf(const LocatedItem& item, const MountTable& mounts) {
    const bool hasID = (item.status.stx_mask & STATX_MNT_ID) != 0;
    const Mount* mount = hasID ? mounts.withID(static_cast<int>(item.status.stx_mnt_id)) : nullptr;
    return mount != nullptr ? mount : mounts.covering(item.linklessPath);
}

TrashItem trashItem(const FileURL& item, const LocatedItem& located, const Mount* mount) {
    return {item.path(), located.linklessPath, fileType(located.status) == FileType::directory,
            (located.status.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0, mount};
}

/// The folders above a Trash that is named by `.Trash` and `.Trash-UID`, the item's path below
/// which is what its info file holds.
std::optional<FileURL> volumeOf(const FileURL& trash) {
    const FileURL parent = trash.deletingLastPathComponent();
    if (trash.lastPathComponent().starts_with(".Trash-")) {
        return parent;
    }
    return parent.lastPathComponent() == ".Trash"
               ? std::optional(parent.deletingLastPathComponent())
               : std::nullopt;
}

class LinuxTrash final : public Trash {
  public:
    explicit LinuxTrash(const HostLayout& layout)
        : layout_(layout)
        , user_(layout.userID.value_or(::geteuid())) {}

    Result<std::optional<FileURL>, std::string> move(const FileURL& item,
                                                     const FileURL& within) const override {
        const Result<LocatedItem, SystemError> located =
            locate(item, within.standardized(), layout_.sources.proc);
        if (!located) {
            return tl::unexpected(located.error().message());
        }
        const MountTable mounts = readMounts(layout_.sources);
        const Mount* mount = mountOf(*located, mounts);
        const std::optional<std::string> reason =
            reasonToStay(trashItem(item, *located, mount), mounts, layout_);
        if (reason) {
            return tl::unexpected(*reason);
        }
        return moveToFirst(candidates(item, *located, mount), *located);
    }

    Result<void, std::string> putBack(const FileURL& trashed,
                                      const FileURL& original) const override {
        const Result<ItemPlace, SystemError> item = openParent(trashed.standardized().path());
        if (!item) {
            return tl::unexpected(item.error().message());
        }
        const FileURL place = original.standardized();
        const Result<Descriptor, SystemError> parent =
            makeDirectories(place.deletingLastPathComponent().path(), 0777);
        if (!parent) {
            return tl::unexpected(parent.error().message());
        }
        const std::string name(place.lastPathComponent());
        const Result<void, SystemError> moved = moveItem(*item, *parent, name);
        if (!moved) {
            return tl::unexpected(moved.error().code == EEXIST ? "An item already exists there"
                                                               : moved.error().message());
        }
        const std::optional<std::string> linkless = linklessPath(*parent, layout_.sources.proc);
        removeInfo(trashed.standardized(), place, FileURL(linkless.value_or("")).appending(name));
        return {};
    }

  private:
    std::vector<Candidate> candidates(const FileURL& item, const LocatedItem& located,
                                      const Mount* mount) const {
        using Kind = Candidate::Kind;
        std::vector<Candidate> found = {{Kind::home, layout_.locations.homeTrash, {}, item.path()}};
        const std::optional<std::string> below =
            mount != nullptr ? pathBelow(located.linklessPath, mount->mountPoint) : std::nullopt;
        if (below && !below->empty() && mount->mayHoldTrash()) {
            const FileURL volume(mount->mountPoint);
            const std::string user = std::to_string(user_);
            const std::string recorded = below->substr(1);
            found.push_back({Kind::shared, volume.appending(".Trash").appending(user),
                             mount->mountPoint, recorded});
            found.push_back(
                {Kind::personal, volume.appending(".Trash-" + user), mount->mountPoint, recorded});
        }
        return found;
    }

    Result<std::optional<FileURL>, std::string>
    moveToFirst(const std::vector<Candidate>& candidates, const LocatedItem& item) const {
        std::optional<SystemError> fault;
        for (const Candidate& candidate : candidates) {
            const Result<TrashFolder, SystemError> folder = open(candidate, item);
            if (!folder) {
                fault = isFault(folder.error()) ? folder.error() : fault;
                continue;
            }
            const Result<std::string, SystemError> name =
                folder->receive(item.place, candidate.recordedPath);
            if (name) {
                return candidate.url.appending("files").appending(*name);
            }
            if (name.error().code != EXDEV) {
                return tl::unexpected(name.error().message());
            }
        }
        if (fault) {
            return tl::unexpected(fault->message());
        }
        return std::nullopt;
    }

    Result<TrashFolder, SystemError> open(const Candidate& candidate,
                                          const LocatedItem& item) const {
        const Result<Descriptor, SystemError> trash = candidate.kind == Candidate::Kind::home
                                                          ? openHomeTrash(item)
                                                          : openVolumeTrash(candidate, item);
        return trash ? TrashFolder::open(*trash, user_) : tl::unexpected(trash.error());
    }

    Result<Descriptor, SystemError> openHomeTrash(const LocatedItem& item) const {
        const FileURL& url = layout_.locations.homeTrash;
        const Result<DeepestDirectory, SystemError> deepest = deepestDirectory(url.path());
        if (!deepest) {
            return tl::unexpected(deepest.error());
        }
        if (!liesOnDevice(deepest->directory, item.device())) {
            return tl::unexpected(SystemError{EXDEV});
        }
        const Result<Descriptor, SystemError> parent =
            makeDirectories(url.deletingLastPathComponent().path(), 0700);
        return parent ? ownDirectory(*parent, std::string(url.lastPathComponent()), user_)
                      : tl::unexpected(parent.error());
    }

    Result<Descriptor, SystemError> openVolumeTrash(const Candidate& candidate,
                                                    const LocatedItem& item) const {
        Result<Descriptor, SystemError> folder =
            openPath(candidate.mountPoint, O_PATH | O_DIRECTORY);
        if (!folder) {
            return folder;
        }
        // Another device here hides the mount, or the item lies in a part of it of its own.
        if (!liesOnDevice(*folder, item.device())) {
            return tl::unexpected(SystemError{EXDEV});
        }
        if (candidate.kind == Candidate::Kind::shared) {
            folder = openSharedFolder(*folder);
        }
        if (!folder) {
            return folder;
        }
        return ownDirectory(*folder, std::string(candidate.url.lastPathComponent()), user_);
    }

    /// Without the sticky bit others could remove or swap what lies in it.
    static Result<Descriptor, SystemError> openSharedFolder(const Descriptor& volume) {
        Descriptor folder(
            ::openat(volume.number(), ".Trash", O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        struct stat status;
        if (!folder.isOpen() || ::fstat(folder.number(), &status) != 0) {
            return tl::unexpected(SystemError::last());
        }
        if ((status.st_mode & S_ISVTX) == 0) {
            return tl::unexpected(SystemError{EPERM});
        }
        return folder;
    }

    static bool liesOnDevice(const Descriptor& directory, dev_t device) {
        struct stat status;
        return ::fstat(directory.number(), &status) == 0 && status.st_dev == device;
    }

    /// Removes the info file of an item that has left the Trash, when there is one that tells of
    /// `original` or of the same place without links. Receipts may come from anywhere, so nothing
    /// else may ever go.
    static void removeInfo(const FileURL& trashed, const FileURL& original,
                           const FileURL& linklessOriginal) {
        const FileURL files = trashed.deletingLastPathComponent();
        const FileURL trash = files.deletingLastPathComponent();
        if (files.lastPathComponent() != "files") {
            return;
        }
        const std::string name(trashed.lastPathComponent());
        const Result<Descriptor, SystemError> info =
            openPath(trash.appending("info").path(), O_PATH | O_DIRECTORY | O_NOFOLLOW);
        const std::optional<FileURL> recorded =
            info ? recordedPlace(*info, name, volumeOf(trash)) : std::nullopt;
        if (recorded && (*recorded == original || *recorded == linklessOriginal)) {
            removeInfoFile(*info, name);
        }
    }

    static std::optional<FileURL> recordedPlace(const Descriptor& info, const std::string& name,
                                                const std::optional<FileURL>& volume) {
        const Descriptor file(::openat(info.number(), trashInfoName(name).c_str(),
                                       O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
        const Result<std::string, SystemError> text = file.isOpen()
                                                          ? readContents(file, maximumInfoSize)
                                                          : tl::unexpected(SystemError::last());
        const std::optional<TrashInfo> parsed = text ? TrashInfo::parse(*text) : std::nullopt;
        if (!parsed) {
            return std::nullopt;
        }
        if (parsed->path.starts_with('/')) {
            return FileURL(parsed->path).standardized();
        }
        return volume ? std::optional(volume->appending(parsed->path).standardized())
                      : std::nullopt;
    }

    HostLayout layout_;
    uid_t user_;
};

}

std::shared_ptr<const Trash> systemTrash(const HostLayout& layout) {
    return std::make_shared<LinuxTrash>(layout);
}

}
