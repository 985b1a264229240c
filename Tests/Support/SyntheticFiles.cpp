#include <Support/SyntheticFiles.h>

#include <algorithm>
#include <cerrno>

namespace tolvane {
namespace {

ResourceValues valuesOf(FileType type, std::optional<Bytes> allocatedSize,
                        std::optional<Bytes> logicalSize) {
    ResourceValues values;
    values.totalFileAllocatedSize = allocatedSize;
    values.fileSize = logicalSize;
    values.fileResourceType = type;
    values.isDirectory = type == FileType::directory;
    values.isSymbolicLink = type == FileType::symbolicLink;
    values.isRegularFile = type == FileType::regular;
    return values;
}

Result<ResourceValues, SystemError> valuesOf(const SyntheticItem* item) {
    if (item == nullptr || item->valuesError) {
        return tl::unexpected(item == nullptr ? SystemError{ENOENT} : *item->valuesError);
    }
    return item->values;
}

/// Asked of the stop test once every so many entries, as a listing read in pieces would be.
constexpr std::size_t entriesPerBuffer = 2048;

class SyntheticDirectory final : public Directory {
  public:
    SyntheticDirectory(const SyntheticItem& item, const Listing& listing) {
        for (const SyntheticItem& child : item.children) {
            if (!listing.skipsHidden || !child.name.starts_with('.')) {
                entries_.push_back(&child);
            }
        }
    }

    static Result<std::unique_ptr<Directory>, SystemError> opened(const SyntheticItem* item,
                                                                  const Listing& listing) {
        if (item == nullptr || item->listingError) {
            return tl::unexpected(item == nullptr ? SystemError{ENOENT} : *item->listingError);
        }
        if (!item->values.isDirectory.value_or(!item->children.empty())) {
            return tl::unexpected(SystemError{ENOTDIR});
        }
        for (std::size_t read = entriesPerBuffer; read < item->children.size();
             read += entriesPerBuffer) {
            if (listing.isCancelled && listing.isCancelled()) {
                return tl::unexpected(SystemError::cancelled());
            }
        }
        return std::make_unique<SyntheticDirectory>(*item, listing);
    }

    std::size_t count() const override { return entries_.size(); }
    std::string_view name(std::size_t position) const override { return entries_[position]->name; }
    EntryType listedType(std::size_t) const override { return EntryType::unknown; }
    Result<ResourceValues, SystemError> values(std::size_t position) override {
        return valuesOf(entries_[position]);
    }
    Result<std::unique_ptr<Directory>, SystemError> open(std::size_t position,
                                                         const Listing& listing) override {
        return opened(entries_[position], listing);
    }

  private:
    std::vector<const SyntheticItem*> entries_;
};

}

SyntheticItem SyntheticItem::file(std::string name, Bytes allocatedSize, Bytes logicalSize) {
    return {std::move(name), valuesOf(FileType::regular, allocatedSize, logicalSize)};
}

SyntheticItem SyntheticItem::folder(std::string name, std::vector<SyntheticItem> children) {
    return {std::move(name), valuesOf(FileType::directory, {}, {}), std::move(children)};
}

SyntheticItem SyntheticItem::link(std::string name, std::string target, Bytes size) {
    return {std::move(name), valuesOf(FileType::symbolicLink, 0, size), {}, std::move(target)};
}

const SyntheticItem* SyntheticFiles::find(const FileURL& url) const {
    std::string_view rest = url.path();
    if (!rest.starts_with(rootPath_)) {
        return nullptr;
    }
    rest.remove_prefix(rootPath_.size());
    const SyntheticItem* item = &root_;
    while (item != nullptr && !rest.empty()) {
        rest.remove_prefix(rest.starts_with('/') ? 1 : 0);
        const std::string_view name = rest.substr(0, rest.find('/'));
        rest.remove_prefix(name.size());
        const auto child = std::ranges::find(item->children, name, &SyntheticItem::name);
        item = child == item->children.end() ? nullptr : &*child;
    }
    return item;
}

Result<std::unique_ptr<Directory>, SystemError>
SyntheticFiles::openDirectory(const FileURL& url, const Listing& listing) const {
    return SyntheticDirectory::opened(find(resolvingLinks(url)), listing);
}

Result<ResourceValues, SystemError> SyntheticFiles::values(const FileURL& url) const {
    return valuesOf(find(url));
}

std::optional<FileType> SyntheticFiles::targetType(const FileURL& url) const {
    const SyntheticItem* item = find(resolvingLinks(url));
    return item == nullptr ? std::nullopt : item->values.fileResourceType;
}

FileURL SyntheticFiles::resolvingLinks(const FileURL& url) const {
    const SyntheticItem* item = find(url);
    return item == nullptr || item->target.empty() ? url : FileURL(item->target);
}

}
