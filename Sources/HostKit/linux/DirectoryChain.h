#pragma once

#include <HostKit/FileManager.h>
#include <HostKit/linux/Descriptor.h>
#include <HostKit/linux/ListingArena.h>

#include <array>
#include <memory>
#include <string_view>
#include <vector>

namespace tolvane {

class LinuxDirectory;

/// What the open directories of one walk share: the buffer their listings are read through, the
/// memory the listings lie in, and a small number of descriptors. The descriptors of the
/// directories farthest from the walk are closed and come back when the walk does.
class DirectoryChain {
  public:
    /// `purgeableFolder` is the path from the top directory to the folder whose content counts as
    /// purgeable; empty when that does not lie below.
    DirectoryChain(FileURL top, std::string_view purgeableFolder)
        : purgeableBelow(purgeableFolder)
        , top_(std::move(top)) {}

    void push(LinuxDirectory* directory);
    /// Takes the newest directory off and opens the one above it again where it was closed.
    void pop();
    /// The path by which the directory was reached.
    std::string pathOf(const LinuxDirectory* directory) const;

    const std::string purgeableBelow;
    ListingArena arena;
    /// Small, since one read of it cannot be cancelled: on a cold disk each 4 KiB of a large
    /// directory may take a seek of its own.
    alignas(8) std::array<char, 8 * 1024> buffer;

  private:
    static constexpr std::size_t maxDescriptors = 16;

    FileURL top_;
    std::vector<LinuxDirectory*> directories_;
    std::size_t firstOpen_ = 0;
};

/// A directory on Linux: `getdents64` once, `statx` for each entry that is asked for.
class LinuxDirectory final : public Directory {
  public:
    /// Lists the directory that `descriptor` holds, the first of its chain.
    static Result<std::unique_ptr<Directory>, SystemError>
    openTop(const FileURL& url, Descriptor descriptor, bool isPurgeable,
            std::string_view purgeableBelow, const Listing& listing);
    ~LinuxDirectory() override;

    std::size_t count() const override { return count_; }
    std::string_view name(std::size_t position) const override {
        return chain_->arena.name(start_.entries + position);
    }
    EntryType listedType(std::size_t position) const override {
        return chain_->arena.type(start_.entries + position);
    }
    Result<ResourceValues, SystemError> values(std::size_t position) override;
    Result<std::unique_ptr<Directory>, SystemError> open(std::size_t position,
                                                         const Listing& listing) override;

  private:
    friend class DirectoryChain;
    /// What tells whether the content may be deleted by the system.
    struct Purgeability {
        bool all = false;
        /// The purgeable folder's path from here, within the chain's; empty when it is not below.
        std::string_view below;

        Purgeability inside(std::string_view name) const;
    };

    LinuxDirectory(DirectoryChain* chain, Descriptor descriptor, Purgeability purgeability);
    static Result<std::unique_ptr<LinuxDirectory>, SystemError>
    listed(std::unique_ptr<LinuxDirectory> directory, const Listing& listing);
    Result<void, SystemError> list(const Listing& listing);
    Result<bool, SystemError> appendBuffer(std::size_t length, const Listing& listing);
    Result<void, SystemError> ensureOpen();
    void closeDescriptor();
    void reopenFrom(int child);

    std::unique_ptr<DirectoryChain> ownChain_;
    DirectoryChain* chain_;
    Descriptor descriptor_;
    Purgeability purgeability_;
    ListingArena::Mark start_;
    std::size_t count_ = 0;
    /// Its position in the directory above.
    std::size_t positionAbove_ = 0;
    /// Taken when the descriptor is closed, to know the directory again.
    FileIdentity identity_;
};

/// Whether a directory holds a "CACHEDIR.TAG" that begins with the signature of the Cache Directory
/// Tagging specification.
bool isTaggedAsCache(int directory);

}
