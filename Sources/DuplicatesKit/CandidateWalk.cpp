#include <DuplicatesKit/CandidateWalk.h>
#include <HostKit/DeepEnumerator.h>
#include <ScanKit/ExcludedPaths.h>

#include <optional>
#include <string>
#include <unordered_set>

namespace tolvane {
namespace {

/// Folders that are one piece to people.
const std::vector<std::string> packageExtensions{"app", "AppDir"};

struct IdentityHash {
    std::size_t operator()(const FileIdentity& identity) const noexcept {
        constexpr std::uint64_t spread = 0x9E3779B97F4A7C15;
        return static_cast<std::size_t>(
            (identity.inode ^ static_cast<std::uint64_t>(identity.device) << 32) * spread);
    }
};

/// Knows the folders that the walk came to. Only where something is mounted below the root can it
/// come to one again.
class EnteredFolders {
  public:
    EnteredFolders(const FileManager& files, const FileURL& root) {
        const FileURL place = files.resolvingLinks(root);
        const MountTable mounts = files.mounts();
        isNeeded_ = !mounts.isReadable() || mounts.hasMountBelow(place.path());
        if (const auto values = files.values(place); values && isNeeded_) {
            enter(*values);
        }
    }

    /// Whether the folder is new.
    bool enter(const ResourceValues& values) {
        return !isNeeded_ || !values.identity || entered_.insert(*values.identity).second;
    }

  private:
    bool isNeeded_ = false;
    std::unordered_set<FileIdentity, IdentityHash> entered_;
};

/// Knows what is excluded in the folder that the walk is in.
class Exclusions {
  public:
    explicit Exclusions(const std::vector<std::string>& prefixes)
        : prefixes_(prefixes) {}

    bool contain(const DeepEnumerator& walk) {
        if (!here_ || folder_ != walk.folder()) {
            folder_ = walk.folder();
            here_ = ExcludedPaths::below(FileURL(folder_), prefixes_);
        }
        return here_->contains(walk.name());
    }

  private:
    const std::vector<std::string>& prefixes_;
    std::string folder_;
    std::optional<ExcludedPaths> here_;
};

/// The size of a file that is worth comparing.
std::optional<Bytes> candidateSize(const ResourceValues& values, Bytes minimumSize) {
    const bool isFile = values.isRegularFile.value_or(false);
    if (!isFile || values.isSymbolicLink.value_or(false)) {
        return std::nullopt;
    }
    if (!values.fileSize) {
        return minimumSize > 0 ? std::nullopt : std::optional<Bytes>(0);
    }
    return *values.fileSize >= minimumSize ? values.fileSize : std::nullopt;
}

}

CollectedCandidates collectCandidates(const FileManager& files, const FileURL& root,
                                      const DuplicateOptions& options,
                                      const std::function<bool()>& isCancelled) {
    CollectedCandidates collected;
    EnteredFolders entered(files, root);
    Exclusions exclusions(options.excludedPrefixes);
    DeepEnumerator walk(files, root,
                        {.skipsHidden = options.skipsHiddenFiles,
                         .entersLinkedRoot = true,
                         .opaqueExtensions = packageExtensions,
                         .isCancelled = isCancelled},
                        [&](const FileURL& url, SystemError error) {
                            collected.errors.push_back({url.path(), error.description()});
                        });
    while (walk.next()) {
        if (isCancelled && isCancelled()) {
            break;
        }
        if (exclusions.contain(walk)) {
            walk.skipDescendants();
            continue;
        }
        const Result<ResourceValues, SystemError> values = walk.values();
        if (!values) {
            continue;
        }
        if (values->isDirectory.value_or(false) && !entered.enter(*values)) {
            walk.skipDescendants();
        }
        if (const std::optional<Bytes> size = candidateSize(*values, options.minimumSize)) {
            collected.files.add(walk.folder(), walk.name(), *size, *values);
        }
    }
    return collected;
}

}
