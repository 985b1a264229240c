#pragma once

#include <HostKit/Checked.h>
#include <HostKit/Date.h>
#include <HostKit/FileURL.h>
#include <HostKit/Identifier.h>

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane {

/// One item of a scanned tree. A cheap value: copying one takes the same time whatever hangs below
/// it, because children are shared and never edited, so that trees may cross threads. No node holds
/// a path: names hang on a chain of folders and `url()` joins them.
///
/// What the scanner did not keep as nodes is folded into the hidden totals of the directory it lies
/// in, so that every total is listed plus hidden.
class FileNode {
  public:
    /// `regular` is a plain file, `symlink` a link that was not followed, `other` everything else
    /// that is no directory: devices, sockets, pipes.
    enum class Kind : std::uint8_t { directory, regular, symlink, other };

    /// A node on its own, with a fresh id.
    FileNode(const FileURL& url, std::string_view name, Kind kind, Bytes allocatedSize,
             Bytes logicalSize, bool isPurgeable, std::optional<Date> modified,
             std::vector<FileNode> children, Bytes hiddenBytes, std::int64_t hiddenFiles,
             std::int64_t hiddenDirectories, bool truncated);
    FileNode(const FileNode&);
    FileNode(FileNode&&) noexcept;
    FileNode& operator=(const FileNode&);
    FileNode& operator=(FileNode&&) noexcept;
    ~FileNode();

    /// Made when the node is; two scans of one path give different ids.
    const Identifier& id() const { return id_; }
    /// Joined anew by every call, in time proportional to the depth.
    FileURL url() const;
    /// The last path component; for "/" the whole path.
    std::string_view name() const;
    Kind kind() const { return kind_; }
    /// Bytes on disk of this item alone; 0 for a directory.
    Bytes allocatedSize() const { return allocatedSize_; }
    /// Content length of this item alone; 0 for a directory.
    Bytes logicalSize() const { return logicalSize_; }
    /// Whether the system may reclaim the item by itself.
    bool isPurgeable() const { return flags_.isPurgeable; }
    std::optional<Date> modified() const;
    /// Allocated bytes of what lies below and was scanned but not kept.
    Bytes hiddenBytes() const;
    /// How many items that are no directories were folded away.
    std::int64_t hiddenFiles() const;
    /// How many directories were folded away, each one inside a folded subtree included.
    std::int64_t hiddenDirectories() const;
    /// Whether a directory or a file was refused because a budget of the whole scan was used up.
    /// The limit within one directory does not set it.
    bool truncated() const { return flags_.truncated; }
    /// Kept directories first, then the others, each group in listing order.
    const std::vector<FileNode>& children() const;

    bool isDirectory() const { return kind_ == Kind::directory; }

    // Totals over the tree from here. Each call walks it; `totals(node)` gives all in one walk.
    Bytes totalAllocatedSize() const;
    /// Of listed items only: hidden bytes are allocated ones.
    Bytes totalLogicalSize() const;
    /// Allocated bytes of listed purgeable items.
    Bytes totalPurgeableSize() const;
    std::int64_t fileCount() const;
    /// This directory included.
    std::int64_t directoryCount() const;
    /// Listed items without listed children; an empty directory is none.
    std::int64_t leavesCount() const;
    std::int64_t listedFileCount() const;
    std::int64_t listedDirectoryCount() const;
    std::int64_t notListedFileCount() const;
    std::int64_t notListedDirectoryCount() const;

    /// This node and everything below it, in pre-order.
    std::vector<FileNode> flattened() const;

    /// The same node (same id) over other children; this one stays as it is.
    FileNode settingChildren(std::vector<FileNode> children) const;

  private:
    friend class FolderBuilder;
    struct Folder;
    struct Contents;
    struct Flags {
        bool isPurgeable : 1 = false;
        bool truncated : 1 = false;
        /// Lies in no folder of the chain: the path is the folder's own, the name its text.
        bool standsAlone : 1 = false;
    };
    friend void intrusive_ptr_add_ref(const Folder*) noexcept;
    friend void intrusive_ptr_release(const Folder*) noexcept;
    friend void intrusive_ptr_add_ref(const Contents*) noexcept;
    friend void intrusive_ptr_release(const Contents*) noexcept;

    FileNode() = default;

    static constexpr Date absentDate = std::numeric_limits<Date>::quiet_NaN();

    Identifier id_{};
    boost::intrusive_ptr<const Folder> folder_;
    /// Null when there are neither children nor hidden totals.
    boost::intrusive_ptr<const Contents> contents_;
    Bytes allocatedSize_ = 0;
    Bytes logicalSize_ = 0;
    Date modified_ = absentDate;
    std::uint32_t nameOffset_ = 0;
    std::uint16_t nameLength_ = 0;
    Kind kind_ = Kind::other;
    Flags flags_;
};

static_assert(sizeof(FileNode) == 64, "one cache line: scans keep hundreds of thousands");

/// "directory", "regular", "symlink", "other".
std::string_view rawValue(FileNode::Kind kind);
/// The kind with this raw value; absent for any other text.
std::optional<FileNode::Kind> fileNodeKind(std::string_view rawValue);

/// Everything a `FileNode` says about the tree below it.
struct NodeTotals {
    Bytes totalAllocatedSize = 0;
    Bytes totalLogicalSize = 0;
    Bytes totalPurgeableSize = 0;
    std::int64_t fileCount = 0;
    std::int64_t directoryCount = 0;
    std::int64_t leavesCount = 0;
    std::int64_t listedFileCount = 0;
    std::int64_t listedDirectoryCount = 0;

    std::int64_t notListedFileCount() const;
    std::int64_t notListedDirectoryCount() const;
};

/// What `node` adds by itself: its own sizes and hidden totals, nothing of its children.
NodeTotals ownTotals(const FileNode& node);
/// Adds a child's totals to those of the folder it lies in. `leavesCount` included.
void addChild(NodeTotals& folder, const NodeTotals& child);
/// All totals in one walk.
NodeTotals totals(const FileNode& node);

}
