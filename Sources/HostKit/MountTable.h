#pragma once

#include <HostKit/FileURL.h>

#include <string>
#include <string_view>
#include <vector>

namespace tolvane {

/// One line of the mount table, names decoded.
struct Mount {
    int id = 0;
    unsigned major = 0;
    unsigned minor = 0;
    /// The folder of the file system that the mount shows.
    std::string root;
    std::string mountPoint;
    std::string type;
    std::string source;
    /// Lies on a medium that can be taken out.
    bool isRemovable = false;

    /// Whether the Trash rules may use this mount's own Trash: a local file system, removable
    /// media, images and memory file systems included; network, FUSE, overlay and pseudo systems
    /// not.
    bool mayHoldTrash() const;
};

/// What is mounted where.
class MountTable {
  public:
    MountTable() = default;
    /// `isReadable` false: the table could not be read and says nothing.
    explicit MountTable(std::vector<Mount> mounts, bool isReadable = true);

    /// The format of /proc/self/mountinfo (proc(5)). Lines that do not follow it are dropped.
    static MountTable parse(std::string_view mountinfo);

    const std::vector<Mount>& mounts() const { return mounts_; }
    bool isReadable() const { return isReadable_; }

    /// The mount with this id; null when there is none.
    const Mount* withID(int id) const;
    /// The mount that shows `path`: the longest mount point that equals or contains it, the last of
    /// several; null in an empty table.
    const Mount* covering(std::string_view path) const;
    /// Whether something is mounted on exactly this path.
    bool isMountPoint(std::string_view path) const;
    /// Whether something is mounted strictly below `path`.
    bool hasMountBelow(std::string_view path) const;
    /// Mount points below `root` that a scan of `root` must leave out: what is not on a disk of
    /// this machine, what another mount shows already, images, removable media. Ascending length.
    std::vector<std::string> excludedMounts(const FileURL& root) const;

  private:
    std::vector<Mount> mounts_;
    bool isReadable_ = true;
};

}
