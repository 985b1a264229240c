#include <ScanKit/ExcludedPaths.h>
#include <ScanKit/FileTreeScanner.h>
#include <ScanKit/FolderBuilder.h>

#include <algorithm>
#include <unordered_set>

namespace tolvane {
namespace {

/// A file by the device and number of its inode: the same for each of its names.
using InodeKey = FileIdentity;

struct InodeKeyHash {
    std::size_t operator()(const InodeKey& key) const {
        const auto device = static_cast<std::uint64_t>(key.device);
        return std::hash<std::uint64_t>{}(device * 0x9e3779b97f4a7c15ULL ^ key.inode);
    }
};

bool isLink(const ResourceValues& values) {
    return values.isSymbolicLink.value_or(values.fileResourceType == FileType::symbolicLink);
}

bool isDirectory(const ResourceValues& values) {
    return values.isDirectory.value_or(values.fileResourceType == FileType::directory);
}

/// One run of the scanner: everything that lives only as long as the walk.
class Scan {
  public:
    Scan(const ScanOptions& options, const FileManager& files, const ScanProgressCallback& progress,
         const std::function<bool()>& isCancelled, std::vector<ScanFailure>& failures)
        : options_(options)
        , files_(files)
        , progress_(progress)
        , isCancelled_(isCancelled)
        , failures_(failures)
        , progressInterval_(std::max<std::int64_t>(1, options.progressInterval))
        , listing_{isCancelled, options.skipsHiddenFiles}
        , shared_(options) {}

    ScanOutcome run(const FileURL& root) {
        path_ = root.path();
        const ResourceValues values = files_.values(root).value_or(ResourceValues{});
        FolderBuilder::Walked walked = walkTop(root, values, 0);
        const ScanOutcome::Case outcome =
            wasCancelled_ ? ScanOutcome::Case::cancelled : ScanOutcome::Case::completed;
        return {outcome, FolderBuilder::topNode(root, std::move(walked))};
    }

  private:
    using Walked = FolderBuilder::Walked;
    using Opened = Result<std::unique_ptr<Directory>, SystemError>;

    /// One directory on the way down.
    struct Place {
        Directory& directory;
        std::int64_t depth;
        const ExcludedPaths& excluded;
        FolderBuilder& builder;
    };

    /// Walks a directory that is reached by a path of its own: the root, or what a link leads to.
    Walked walkTop(const FileURL& url, const ResourceValues& values, std::int64_t depth) {
        const ExcludedPaths excluded = ExcludedPaths::below(url, options_.excludedPathPrefixes);
        return walk([&] { return files_.openDirectory(url, listing_); }, values, depth, excluded,
                    url.path());
    }

    /// Walks the directory at `path_`. `topPath` is empty unless it is the top of a chain.
    template <class Open>
    Walked walk(const Open& open, const ResourceValues& values, std::int64_t depth,
                const ExcludedPaths& excluded, std::string_view topPath) {
        ++progressNow_.directoriesScanned;
        const bool isFolded = depth > 0 && !shared_.budget.mayKeepDirectory();
        FolderBuilder builder(shared_, isFolded ? FolderBuilder::Destiny::folded
                                                : FolderBuilder::Destiny::open);
        const std::unique_ptr<Directory> directory =
            depth < options_.maxDepth ? opened(open()) : nullptr;
        if (directory) {
            walkEntries({*directory, depth, excluded, builder});
        }
        Walked walked = builder.finish(directory.get(), topPath);
        walked.isPurgeable = values.isPurgeable.value_or(false);
        walked.modified = values.contentModificationDate.value_or(walked.modified);
        if (progress_) {
            report(path_);
        }
        return walked;
    }

    /// A directory that cannot be listed comes out empty.
    std::unique_ptr<Directory> opened(Opened result) {
        if (result) {
            return std::move(*result);
        }
        if (result.error().isCancelled()) {
            wasCancelled_ = true;
        } else {
            failures_.push_back({path_, result.error().description()});
        }
        return nullptr;
    }

    void walkEntries(const Place& place) {
        const std::size_t count = place.directory.count();
        for (std::size_t position = 0; position < count; ++position) {
            if (wasCancelled_ || (isCancelled_ && isCancelled_())) {
                wasCancelled_ = true;
                return;
            }
            if (!place.excluded.contains(place.directory.name(position))) {
                handleEntry(place, position);
            }
        }
    }

    void handleEntry(const Place& place, std::size_t position) {
        const Result<ResourceValues, SystemError> values = place.directory.values(position);
        const std::string_view name = place.directory.name(position);
        if (!values) {
            failures_.push_back({pathOf(name), "unreadable resource values"});
            return;
        }
        if (options_.excludesNoFollowMarker && name == FileTreeScanner::noFollowMarker) {
            return;
        }
        const bool link = isLink(*values);
        if (isDirectory(*values) && !link) {
            enterDirectory(place, position, *values);
        } else if (link && options_.followsSymlinks && place.depth + 1 < options_.maxDepth) {
            followLink(place, position);
        } else {
            countFile(place, position, *values, link);
        }
    }

    void enterDirectory(const Place& place, std::size_t position, const ResourceValues& values) {
        const std::string_view name = place.directory.name(position);
        const std::size_t length = path_.size();
        appendComponent(path_, name);
        const ExcludedPaths excluded = place.excluded.inside(name);
        Walked walked = walk([&] { return place.directory.open(position, listing_); }, values,
                             place.depth + 1, excluded, {});
        path_.resize(length);
        walked.position = static_cast<std::uint32_t>(position);
        place.builder.add(std::move(walked));
    }

    void followLink(const Place& place, std::size_t position) {
        const FileURL resolved =
            files_.resolvingLinks(FileURL(pathOf(place.directory.name(position))));
        const ResourceValues values = files_.values(resolved).value_or(ResourceValues{});
        std::string path = std::exchange(path_, resolved.path());
        Walked walked = walkTop(resolved, values, place.depth + 1);
        path_ = std::move(path);
        walked.position = static_cast<std::uint32_t>(position);
        walked.resolved = resolved;
        place.builder.add(std::move(walked));
    }

    void countFile(const Place& place, std::size_t position, const ResourceValues& values,
                   bool link) {
        FolderBuilder::File file{.position = static_cast<std::uint32_t>(position),
                                 .kind = fileKind(values, link),
                                 .isPurgeable = values.isPurgeable.value_or(false)};
        file.modified = values.contentModificationDate.value_or(file.modified);
        if (isFirstName(values)) {
            file.logicalSize = values.fileSize.value_or(0);
            file.allocatedSize = values.totalFileAllocatedSize.value_or(file.logicalSize);
            ++progressNow_.filesScanned;
            add(progressNow_.scannedBytes, file.allocatedSize);
            reportItem(place.directory.name(position));
        }
        place.builder.add(file);
    }

    static FileNode::Kind fileKind(const ResourceValues& values, bool link) {
        if (link) {
            return FileNode::Kind::symlink;
        }
        return values.fileResourceType == FileType::regular ? FileNode::Kind::regular
                                                            : FileNode::Kind::other;
    }

    /// Whether the file is to be counted: another name of one that was counted is listed with no
    /// size.
    bool isFirstName(const ResourceValues& values) {
        if (!options_.deduplicatesHardlinks || !values.identity) {
            return true;
        }
        return seenInodes_.insert(*values.identity).second;
    }

    void reportItem(std::string_view name) {
        if (!progress_) {
            return;
        }
        const std::int64_t items = progressNow_.filesScanned + progressNow_.directoriesScanned;
        if (items == 1 || items % progressInterval_ == 0) {
            report(pathOf(name));
        }
    }

    void report(const std::string& path) {
        progressNow_.currentPath = path;
        progress_(progressNow_);
    }

    std::string pathOf(std::string_view name) const {
        std::string path = path_;
        appendComponent(path, name);
        return path;
    }

    const ScanOptions& options_;
    const FileManager& files_;
    const ScanProgressCallback& progress_;
    const std::function<bool()>& isCancelled_;
    std::vector<ScanFailure>& failures_;
    const std::int64_t progressInterval_;
    const Listing listing_;
    FolderBuilder::Shared shared_;
    ScanProgress progressNow_;
    std::unordered_set<InodeKey, InodeKeyHash> seenInodes_;
    /// The directory that is being walked.
    std::string path_;
    bool wasCancelled_ = false;
};

}

const std::vector<std::string>& FileTreeScanner::defaultExcludedPrefixes() {
    static const std::vector<std::string> prefixes{
        "/System/Volumes", "/Volumes",         "/private/var/vm", "/dev",     "/Network",
        "/cores",          "/.Spotlight-V100", "/.fseventsd",     "/.Trashes"};
    return prefixes;
}

FileTreeScanner::FileTreeScanner(ScanOptions options,
                                 std::shared_ptr<const FileManager> fileManager)
    : options_(std::move(options))
    , files_(std::move(fileManager)) {}

FileTreeScanner::~FileTreeScanner() = default;

ScanOutcome FileTreeScanner::scan(const FileURL& root, const ScanProgressCallback& progress,
                                  const std::function<bool()>& isCancelled) {
    failures_.clear();
    return Scan(options_, *files_, progress, isCancelled, failures_).run(root);
}

}
