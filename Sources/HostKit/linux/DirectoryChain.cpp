#include <HostKit/linux/DirectoryChain.h>
#include <HostKit/linux/ItemStatus.h>
#include <HostKit/linux/LongPath.h>

#include <dirent.h>
#include <fcntl.h>

#include <algorithm>

namespace tolvane {
namespace {

constexpr int directoryFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK;
constexpr std::string_view cacheTagName = "CACHEDIR.TAG";
/// https://bford.info/cachedir/
constexpr std::string_view cacheTagSignature = "Signature: 8a477f597d28d172789f06886806bc55";

EntryType entryType(std::uint8_t type) {
    switch (type) {
    case DT_REG:
        return EntryType::regular;
    case DT_DIR:
        return EntryType::directory;
    case DT_LNK:
        return EntryType::symbolicLink;
    case DT_UNKNOWN:
        return EntryType::unknown;
    default:
        return EntryType::other;
    }
}

bool isSelfOrParent(std::string_view name) {
    return name == "." || name == "..";
}

Result<FileIdentity, SystemError> identityOf(int descriptor) {
    return statusAt(descriptor, "", AT_EMPTY_PATH).map([](const struct statx& status) {
        return identity(status);
    });
}

}

bool isTaggedAsCache(int directory) {
    const Descriptor tag(::openat(directory, cacheTagName.data(),
                                  O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW | O_NOCTTY));
    if (!tag.isOpen()) {
        return false;
    }
    const Result<struct statx, SystemError> status = statusAt(tag.number(), "", AT_EMPTY_PATH);
    if (!status || fileType(*status) != FileType::regular) {
        return false;
    }
    std::array<char, cacheTagSignature.size()> start{};
    const ssize_t length = ::read(tag.number(), start.data(), start.size());
    return length == static_cast<ssize_t>(start.size()) &&
           std::string_view(start.data(), start.size()) == cacheTagSignature;
}

void DirectoryChain::push(LinuxDirectory* directory) {
    directories_.push_back(directory);
    if (directories_.size() - firstOpen_ > maxDescriptors) {
        directories_[firstOpen_]->closeDescriptor();
        ++firstOpen_;
    }
}

void DirectoryChain::pop() {
    const int leaving = directories_.back()->descriptor_.number();
    directories_.pop_back();
    if (!directories_.empty() && firstOpen_ == directories_.size()) {
        --firstOpen_;
        directories_.back()->reopenFrom(leaving);
    }
}

std::string DirectoryChain::pathOf(const LinuxDirectory* directory) const {
    std::string path = top_.path();
    const LinuxDirectory* above = nullptr;
    for (const LinuxDirectory* step : directories_) {
        if (above != nullptr) {
            appendComponent(path, above->name(step->positionAbove_));
        }
        if (step == directory) {
            break;
        }
        above = step;
    }
    return path;
}

LinuxDirectory::Purgeability LinuxDirectory::Purgeability::inside(std::string_view name) const {
    if (all || below.empty() || !liesWithin(below, name)) {
        return {all, {}};
    }
    const std::string_view rest = below.substr(std::min(below.size(), name.size() + 1));
    return {rest.empty(), rest};
}

LinuxDirectory::LinuxDirectory(DirectoryChain* chain, Descriptor descriptor,
                               Purgeability purgeability)
    : chain_(chain)
    , descriptor_(std::move(descriptor))
    , purgeability_(purgeability)
    , start_(chain->arena.mark()) {
    chain_->push(this);
}

LinuxDirectory::~LinuxDirectory() {
    chain_->arena.cutBack(start_);
    chain_->pop();
}

Result<std::unique_ptr<Directory>, SystemError>
LinuxDirectory::openTop(const FileURL& url, Descriptor descriptor, bool isPurgeable,
                        std::string_view purgeableBelow, const Listing& listing) {
    auto chain = std::make_unique<DirectoryChain>(url, purgeableBelow);
    const Purgeability purgeability{isPurgeable, chain->purgeableBelow};
    std::unique_ptr<LinuxDirectory> top(
        new LinuxDirectory(chain.get(), std::move(descriptor), purgeability));
    top->ownChain_ = std::move(chain);
    return listed(std::move(top), listing);
}

Result<std::unique_ptr<Directory>, SystemError> LinuxDirectory::open(std::size_t position,
                                                                     const Listing& listing) {
    if (Result<void, SystemError> ready = ensureOpen(); !ready) {
        return tl::unexpected(ready.error());
    }
    const std::string_view childName = name(position);
    Descriptor opened(
        ::openat(descriptor_.number(), childName.data(), directoryFlags | O_NOFOLLOW));
    if (!opened.isOpen()) {
        return tl::unexpected(SystemError::last());
    }
    std::unique_ptr<LinuxDirectory> child(
        new LinuxDirectory(chain_, std::move(opened), purgeability_.inside(childName)));
    child->positionAbove_ = position;
    return listed(std::move(child), listing);
}

Result<std::unique_ptr<LinuxDirectory>, SystemError>
LinuxDirectory::listed(std::unique_ptr<LinuxDirectory> directory, const Listing& listing) {
    if (Result<void, SystemError> done = directory->list(listing); !done) {
        return tl::unexpected(done.error());
    }
    return directory;
}

Result<void, SystemError> LinuxDirectory::list(const Listing& listing) {
    bool isTagged = false;
    for (std::int64_t buffers = 0;; ++buffers) {
        // The first buffer holds all of most directories; the second read only finds the end.
        if (buffers > 1 && listing.isCancelled && listing.isCancelled()) {
            return tl::unexpected(SystemError::cancelled());
        }
        const ssize_t length =
            ::getdents64(descriptor_.number(), chain_->buffer.data(), chain_->buffer.size());
        if (length < 0) {
            return tl::unexpected(SystemError::last());
        }
        if (length == 0) {
            break;
        }
        const Result<bool, SystemError> sawTag =
            appendBuffer(static_cast<std::size_t>(length), listing);
        if (!sawTag) {
            return tl::unexpected(sawTag.error());
        }
        isTagged = isTagged || *sawTag;
    }
    if (isTagged && !purgeability_.all) {
        purgeability_.all = isTaggedAsCache(descriptor_.number());
    }
    return {};
}

/// Appends what one read gave; tells whether a cache tag was among it.
Result<bool, SystemError> LinuxDirectory::appendBuffer(std::size_t length, const Listing& listing) {
    bool sawTag = false;
    for (std::size_t offset = 0; offset < length;) {
        const auto* entry = reinterpret_cast<const dirent64*>(chain_->buffer.data() + offset);
        offset += entry->d_reclen;
        const std::string_view entryName(entry->d_name);
        if (entryName.starts_with('.') && (listing.skipsHidden || isSelfOrParent(entryName))) {
            continue;
        }
        sawTag = sawTag || entryName == cacheTagName;
        if (!chain_->arena.append(entryName, entryType(entry->d_type))) {
            return tl::unexpected(SystemError{ENOMEM});
        }
        ++count_;
    }
    return sawTag;
}

Result<ResourceValues, SystemError> LinuxDirectory::values(std::size_t position) {
    if (Result<void, SystemError> ready = ensureOpen(); !ready) {
        return tl::unexpected(ready.error());
    }
    const std::string_view entryName = name(position);
    const Result<struct statx, SystemError> status =
        statusAt(descriptor_.number(), entryName.data(), AT_SYMLINK_NOFOLLOW);
    if (!status) {
        return tl::unexpected(status.error());
    }
    return resourceValues(*status, purgeability_.all);
}

/// A directory that could not be reached from below is sought by its path once more.
Result<void, SystemError> LinuxDirectory::ensureOpen() {
    if (descriptor_.isOpen()) {
        return {};
    }
    Result<Descriptor, SystemError> opened = openPath(chain_->pathOf(this), directoryFlags);
    if (!opened) {
        return tl::unexpected(opened.error());
    }
    if (identityOf(opened->number()) != identity_) {
        return tl::unexpected(SystemError{ESTALE});
    }
    descriptor_ = std::move(*opened);
    return {};
}

void LinuxDirectory::closeDescriptor() {
    identity_ = identityOf(descriptor_.number()).value_or(FileIdentity{});
    descriptor_.reset();
}

void LinuxDirectory::reopenFrom(int child) {
    if (child < 0) {
        return;
    }
    Descriptor opened(::openat(child, "..", directoryFlags));
    if (opened.isOpen() && identityOf(opened.number()) == identity_) {
        descriptor_ = std::move(opened);
    }
}

}
