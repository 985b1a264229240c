#pragma once

#include <HostKit/FileManager.h>
#include <HostKit/Identifier.h>
#include <ScanKit/FileNodeStorage.h>
#include <ScanKit/RetentionBudget.h>

#include <cstdint>
#include <string_view>
#include <vector>

namespace tolvane {

/// Gathers one walked directory. What is kept is remembered by its position in the listing; names,
/// identifiers and nodes are made at the end, for the survivors only.
///
/// Once a directory is full, each further file replaces the smallest of all (the earliest among
/// equals). The kept files then form a heap, so that this costs O(log n) however many are kept.
class FolderBuilder {
  public:
    /// An item that is no directory.
    struct File {
        Bytes allocatedSize = 0;
        Bytes logicalSize = 0;
        Date modified = FileNode::absentDate;
        std::uint32_t position = 0;
        FileNode::Kind kind = FileNode::Kind::other;
        bool isPurgeable = false;
    };

    /// Everything below a directory, kept or not, and how many directories that is with itself.
    struct Totals {
        Bytes bytes = 0;
        std::int64_t files = 0;
        std::int64_t directories = 0;
    };

    /// A directory that was walked, for the one above it to keep or to fold.
    struct Walked {
        boost::intrusive_ptr<FileNode::Folder> folder;
        boost::intrusive_ptr<FileNode::Contents> contents;
        Totals totals;
        Date modified = FileNode::absentDate;
        std::uint32_t position = 0;
        bool isPurgeable = false;
        bool truncated = false;
        /// Where a followed link led; empty for a directory that lies where it was listed.
        FileURL resolved;
    };

    /// What the builders of one scan share. A builder uses the ends of the lists and leaves them as
    /// it found them, so that a scan allocates for its deepest folder and not for each.
    struct Shared {
        explicit Shared(const ScanOptions& options)
            : budget(options) {}

        RetentionBudget budget;
        IdentifierGenerator identifiers;
        std::vector<File> files;
        std::vector<Walked> directories;
    };

    enum class Destiny {
        /// The directory may be kept.
        open,
        /// It is certain to be folded: only counting is left to do.
        folded
    };

    FolderBuilder(Shared& shared, Destiny destiny);
    ~FolderBuilder();
    FolderBuilder(const FolderBuilder&) = delete;
    FolderBuilder& operator=(const FolderBuilder&) = delete;

    void add(const File& file);
    void add(Walked&& directory);

    /// The directory as far as it was gathered. `listing` gives the names and may be null when
    /// nothing was added. `topPath` is the directory's path when it is the top of a chain of
    /// folders, else empty.
    Walked finish(const Directory* listing, std::string_view topPath);

    /// A node of its own for the top of a chain.
    static FileNode topNode(const FileURL& url, Walked&& walked);

  private:
    void fold(Bytes bytes, std::int64_t files, std::int64_t directories);
    void replaceSmallest(const File& file);
    std::vector<FileNode> takeChildren(const Directory& listing, FileNode::Folder& folder);
    FileNode directoryNode(Walked& directory, std::string_view name, FileNode::Folder& folder);
    FileNode fileNode(const File& file, std::string_view name, FileNode::Folder& folder);
    void place(FileNode& node, std::string_view name, FileNode::Folder& folder);

    Shared& shared_;
    Destiny destiny_;
    std::size_t firstFile_;
    std::size_t firstDirectory_;
    std::int64_t keptFiles_ = 0;
    bool isHeap_ = false;
    bool truncated_ = false;
    Totals totals_{.directories = 1};
    Totals hidden_;
};

}
