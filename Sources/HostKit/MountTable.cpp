#include <HostKit/MountTable.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <optional>
#include <utility>

namespace tolvane {
namespace {

template <std::size_t count>
bool isOneOf(std::string_view text, const std::array<std::string_view, count>& list) {
    return std::find(list.begin(), list.end(), text) != list.end();
}

/// File systems on disks of this machine that nevertheless have no block device number of their
/// own.
constexpr std::array<std::string_view, 3> manyDeviceTypes{"btrfs", "zfs", "bcachefs"};
constexpr std::array<std::string_view, 2> memoryTypes{"tmpfs", "ramfs"};
constexpr std::array<std::string_view, 6> imageTypes{"squashfs", "erofs",  "iso9660",
                                                     "udf",      "cramfs", "romfs"};
constexpr std::array<std::string_view, 4> otherVolumes{"/media", "/run/media", "/mnt", "/Volumes"};
constexpr std::array<std::string_view, 3> usualPseudoFolders{"/proc", "/sys", "/run"};
constexpr unsigned loopMajor = 7;

bool isOctalDigit(char character) {
    return character >= '0' && character <= '7';
}

/// Undoes the escapes of the table: a backslash and three octal digits for one byte.
std::string decoded(std::string_view field) {
    std::string text;
    text.reserve(field.size());
    for (std::size_t i = 0; i < field.size(); ++i) {
        const std::string_view digits = field.substr(i + 1, 3);
        if (field[i] == '\\' && digits.size() == 3 &&
            std::all_of(digits.begin(), digits.end(), isOctalDigit)) {
            const int value = (digits[0] - '0') * 64 + (digits[1] - '0') * 8 + (digits[2] - '0');
            text += static_cast<char>(value);
            i += 3;
        } else {
            text += field[i];
        }
    }
    return text;
}

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> fields;
    while (true) {
        const std::size_t end = text.find(separator);
        fields.push_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return fields;
        }
        text.remove_prefix(end + 1);
    }
}

template <class Number>
bool readNumber(std::string_view text, Number& number) {
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end;
}

bool readDeviceNumber(std::string_view text, Mount& mount) {
    const std::size_t colon = text.find(':');
    return colon != std::string_view::npos && readNumber(text.substr(0, colon), mount.major) &&
           readNumber(text.substr(colon + 1), mount.minor);
}

std::optional<Mount> parseLine(std::string_view line) {
    constexpr std::string_view middle = " - ";
    const std::size_t separator = line.find(middle);
    if (separator == std::string_view::npos) {
        return std::nullopt;
    }
    const std::vector<std::string_view> left = split(line.substr(0, separator), ' ');
    const std::vector<std::string_view> right = split(line.substr(separator + middle.size()), ' ');
    Mount mount;
    if (left.size() < 5 || right.size() < 2 || !readNumber(left[0], mount.id) ||
        !readDeviceNumber(left[2], mount) || !left[4].starts_with('/')) {
        return std::nullopt;
    }
    mount.root = decoded(left[3]);
    mount.mountPoint = decoded(left[4]);
    mount.type = decoded(right[0]);
    mount.source = decoded(right[1]);
    return mount;
}

/// Whether `folder` equals or contains `path`, by components; "/" contains everything.
bool contains(std::string_view folder, std::string_view path) {
    return folder == "/" || liesWithin(path, folder);
}

bool liesStrictlyBelow(std::string_view path, std::string_view folder) {
    return path != folder && contains(folder, path);
}

bool liesOnDiskOfThisMachine(const Mount& mount) {
    return mount.major != 0 || isOneOf(mount.type, manyDeviceTypes);
}

bool isAnotherVolume(const Mount& mount) {
    return std::any_of(otherVolumes.begin(), otherVolumes.end(), [&](std::string_view folder) {
        return liesStrictlyBelow(mount.mountPoint, folder);
    });
}

/// The part of a file system that a scan has come to see.
struct Scope {
    unsigned major = 0;
    unsigned minor = 0;
    std::string folder;

    bool overlaps(const Mount& mount) const {
        return mount.major == major && mount.minor == minor &&
               (contains(mount.root, folder) || contains(folder, mount.root));
    }
};

Scope scopeOf(const Mount& cover, std::string_view root) {
    Scope scope{cover.major, cover.minor, cover.root};
    const std::size_t above = cover.mountPoint == "/" ? 0 : cover.mountPoint.size();
    std::string_view below = root.substr(above);
    if (below.starts_with('/')) {
        below.remove_prefix(1);
    }
    if (!below.empty()) {
        appendComponent(scope.folder, below);
    }
    return scope;
}

/// Decides mount by mount, those nearer to the root first.
class Exclusion {
  public:
    void accept(const Mount& mount, Scope scope) {
        scopes_.push_back(std::move(scope));
        if (mount.type == "btrfs") {
            std::string snapshots = mount.mountPoint;
            appendComponent(snapshots, ".snapshots");
            excluded_.push_back(std::move(snapshots));
        }
    }

    void seeOnly(Scope scope) { scopes_.push_back(std::move(scope)); }

    void decide(const Mount& mount) {
        if (isCoveredAlready(mount)) {
            return;
        }
        if (mustLeaveOut(mount)) {
            excluded_.push_back(mount.mountPoint);
        } else {
            accept(mount, {mount.major, mount.minor, mount.root});
        }
    }

    std::vector<std::string> take() { return std::move(excluded_); }

  private:
    bool isCoveredAlready(const Mount& mount) const {
        return std::any_of(excluded_.begin(), excluded_.end(), [&](const std::string& path) {
            return contains(path, mount.mountPoint);
        });
    }

    bool mustLeaveOut(const Mount& mount) const {
        return !liesOnDiskOfThisMachine(mount) || isOneOf(mount.type, imageTypes) ||
               mount.major == loopMajor || isAnotherVolume(mount) || mount.isRemovable ||
               std::any_of(scopes_.begin(), scopes_.end(),
                           [&](const Scope& scope) { return scope.overlaps(mount); });
    }

    std::vector<Scope> scopes_;
    std::vector<std::string> excluded_;
};

void sortByLength(std::vector<std::string>& paths) {
    std::stable_sort(paths.begin(), paths.end(), [](const std::string& a, const std::string& b) {
        return a.size() < b.size();
    });
}

/// The mounts strictly below `root`, the last of each mount point, by ascending length.
std::vector<const Mount*> mountsBelow(const std::vector<Mount>& mounts, std::string_view root) {
    std::map<std::string_view, const Mount*> lastOf;
    for (const Mount& mount : mounts) {
        if (liesStrictlyBelow(mount.mountPoint, root)) {
            lastOf[mount.mountPoint] = &mount;
        }
    }
    std::vector<const Mount*> list;
    list.reserve(lastOf.size());
    for (const auto& [mountPoint, mount] : lastOf) {
        list.push_back(mount);
    }
    std::stable_sort(list.begin(), list.end(), [](const Mount* a, const Mount* b) {
        return a->mountPoint.size() < b->mountPoint.size();
    });
    return list;
}

std::vector<std::string> pseudoFoldersNotAbove(std::string_view root) {
    std::vector<std::string> list;
    for (const std::string_view folder : usualPseudoFolders) {
        if (!contains(folder, root)) {
            list.emplace_back(folder);
        }
    }
    return list;
}

}

bool Mount::mayHoldTrash() const {
    if (type.starts_with("fuse.")) {
        return false;
    }
    return liesOnDiskOfThisMachine(*this) || isOneOf(type, memoryTypes);
}

MountTable::MountTable(std::vector<Mount> mounts, bool isReadable)
    : mounts_(std::move(mounts))
    , isReadable_(isReadable) {}

MountTable MountTable::parse(std::string_view mountinfo) {
    std::vector<Mount> mounts;
    for (const std::string_view line : split(mountinfo, '\n')) {
        if (std::optional<Mount> mount = parseLine(line)) {
            mounts.push_back(std::move(*mount));
        }
    }
    return MountTable(std::move(mounts));
}

const Mount* MountTable::withID(int id) const {
    const auto found = std::find_if(mounts_.begin(), mounts_.end(),
                                    [id](const Mount& mount) { return mount.id == id; });
    return found == mounts_.end() ? nullptr : &*found;
}

const Mount* MountTable::covering(std::string_view path) const {
    const Mount* cover = nullptr;
    for (const Mount& mount : mounts_) {
        const bool isNearer =
            cover == nullptr || mount.mountPoint.size() >= cover->mountPoint.size();
        if (contains(mount.mountPoint, path) && isNearer) {
            cover = &mount;
        }
    }
    return cover;
}

bool MountTable::isMountPoint(std::string_view path) const {
    return std::any_of(mounts_.begin(), mounts_.end(),
                       [path](const Mount& mount) { return mount.mountPoint == path; });
}

bool MountTable::hasMountBelow(std::string_view path) const {
    return std::any_of(mounts_.begin(), mounts_.end(), [path](const Mount& mount) {
        return liesStrictlyBelow(mount.mountPoint, path);
    });
}

std::vector<std::string> MountTable::excludedMounts(const FileURL& root) const {
    const std::string& path = root.path();
    if (!isReadable_) {
        return pseudoFoldersNotAbove(path);
    }
    Exclusion exclusion;
    if (const Mount* const cover = covering(path); cover != nullptr) {
        if (cover->mountPoint == path) {
            exclusion.accept(*cover, scopeOf(*cover, path));
        } else {
            exclusion.seeOnly(scopeOf(*cover, path));
        }
    }
    for (const Mount* const mount : mountsBelow(mounts_, path)) {
        exclusion.decide(*mount);
    }
    std::vector<std::string> excluded = exclusion.take();
    sortByLength(excluded);
    return excluded;
}

}
