#include <CleanupKit/Cleaner.h>
#include <HostKit/Text.h>

#include <algorithm>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace tolvane {
namespace {

std::vector<FileURL> standardized(const std::vector<FileURL>& urls) {
    std::vector<FileURL> result;
    result.reserve(urls.size());
    for (const FileURL& url : urls) {
        result.push_back(url.standardized());
    }
    return result;
}

/// The first root that contains `path`; null when none does. Nothing lies inside the root "/".
const FileURL* rootContaining(const std::string& path, const std::vector<FileURL>& roots) {
    const auto contains = [&](const FileURL& root) {
        return !root.path().empty() && liesWithin(path, root.path());
    };
    const auto found = std::find_if(roots.begin(), roots.end(), contains);
    return found == roots.end() ? nullptr : &*found;
}

bool leadsUpwards(std::string_view path) {
    return path.find("/../") != std::string_view::npos || path.ends_with("/..");
}

bool hasAncestorIn(const std::unordered_set<std::string_view>& kept, std::string_view path) {
    for (std::size_t end = path.find('/'); end != std::string_view::npos;
         end = path.find('/', end + 1)) {
        if (kept.contains(path.substr(0, end))) {
            return true;
        }
    }
    return false;
}

}

Cleaner::Cleaner(ProtectionPolicy policy, FileURL home, std::shared_ptr<const FileManager> files,
                 std::shared_ptr<const Trash> trash)
    : policy_(std::move(policy))
    , home_(std::move(home))
    , files_(std::move(files))
    , trash_(std::move(trash)) {}

Result<std::vector<FileURL>, RemovalError> Cleaner::validate(const std::vector<FileURL>& items,
                                                             const std::vector<FileURL>& within,
                                                             bool allowProtected) const {
    const std::vector<FileURL> roots = standardized(within);
    std::vector<FileURL> accepted;
    std::unordered_set<std::string> paths;
    for (const FileURL& item : items) {
        Result<FileURL, RemovalError> url = validated(item, roots, allowProtected);
        if (!url) {
            return tl::unexpected(std::move(url.error()));
        }
        if (paths.insert(url->path()).second) {
            accepted.push_back(std::move(*url));
        }
    }
    return reparented(std::move(accepted));
}

Result<std::vector<FileURL>, RemovalError> Cleaner::validate(const std::vector<FileURL>& items,
                                                             const FileURL& within) const {
    return validate(items, std::vector<FileURL>{within}, false);
}

Result<FileURL, RemovalError> Cleaner::validated(const FileURL& item,
                                                 const std::vector<FileURL>& roots,
                                                 bool allowProtected) const {
    FileURL url = item.standardized();
    const std::string& path = url.path();
    const auto isPath = [&](const FileURL& root) { return root.path() == path; };
    if (!allowProtected && policy_.isProtected(url)) {
        return tl::unexpected(RemovalError::protectedPath(path));
    }
    if (std::any_of(roots.begin(), roots.end(), isPath)) {
        return tl::unexpected(RemovalError::isScanRoot(path));
    }
    if (rootContaining(path, roots) == nullptr) {
        return tl::unexpected(RemovalError::outsideScanRoot(path));
    }
    if (!files_->exists(url)) {
        return tl::unexpected(RemovalError::missing(path));
    }
    // Only a relative path can still lead upwards here.
    if (leadsUpwards(path)) {
        return tl::unexpected(RemovalError::protectedPath(path));
    }
    return url;
}

std::vector<FileURL> Cleaner::reparented(std::vector<FileURL> urls) {
    std::vector<std::pair<std::size_t, FileURL>> sorted;
    sorted.reserve(urls.size());
    for (FileURL& url : urls) {
        const std::size_t length = characterCount(url.path());
        sorted.emplace_back(length, std::move(url));
    }
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });

    std::unordered_set<std::string_view> kept;
    std::vector<FileURL> result;
    result.reserve(sorted.size());
    for (const auto& [length, url] : sorted) {
        if (!hasAncestorIn(kept, url.path())) {
            kept.insert(url.path());
            result.push_back(url);
        }
    }
    return result;
}

Result<std::vector<RemovalReceipt>, RemovalError>
Cleaner::moveToTrash(const std::vector<FileURL>& items, const std::vector<FileURL>& within,
                     bool allowProtected) const {
    const Result<std::vector<FileURL>, RemovalError> valid =
        validate(items, within, allowProtected);
    if (!valid) {
        return tl::unexpected(valid.error());
    }
    const std::vector<FileURL> roots = standardized(within);
    std::vector<RemovalReceipt> receipts;
    receipts.reserve(valid->size());
    for (const FileURL& url : *valid) {
        Result<RemovalReceipt, RemovalError> receipt =
            movedToTrash(url, *rootContaining(url.path(), roots));
        if (!receipt) {
            return tl::unexpected(std::move(receipt.error()));
        }
        receipts.push_back(std::move(*receipt));
    }
    return receipts;
}

Result<std::vector<RemovalReceipt>, RemovalError>
Cleaner::moveToTrash(const std::vector<FileURL>& items, const FileURL& within) const {
    return moveToTrash(items, std::vector<FileURL>{within}, false);
}

Result<RemovalReceipt, RemovalError> Cleaner::movedToTrash(const FileURL& item,
                                                           const FileURL& root) const {
    Result<std::optional<FileURL>, std::string> trashed = trash_->move(item, root);
    if (!trashed) {
        return tl::unexpected(RemovalError::trashFailed(item.path(), std::move(trashed.error())));
    }
    if (!trashed->has_value()) {
        return tl::unexpected(RemovalError::trashFailed(
            item.path(), "The volume has no Trash; the item was not moved"));
    }
    return RemovalReceipt{freshIdentifier(), item, std::move(**trashed)};
}

std::vector<RemovalError> Cleaner::restore(const std::vector<RemovalReceipt>& receipts) const {
    std::vector<RemovalError> errors;
    for (const RemovalReceipt& receipt : receipts) {
        Result<void, RemovalError> result = restored(receipt);
        if (!result) {
            errors.push_back(std::move(result.error()));
        }
    }
    return errors;
}

Result<void, RemovalError> Cleaner::restored(const RemovalReceipt& receipt) const {
    // Links are not followed on either side: a relative one leads nowhere while it lies in the
    // Trash, and one that leads nowhere occupies the original place all the same.
    if (!files_->itemExists(receipt.trashed)) {
        return tl::unexpected(RemovalError::missing(receipt.trashed.path()));
    }
    const std::string& original = receipt.original.path();
    if (files_->itemExists(receipt.original)) {
        return tl::unexpected(
            RemovalError::restoreFailed(original, "An item already exists there"));
    }
    Result<void, std::string> moved = trash_->putBack(receipt.trashed, receipt.original);
    if (!moved) {
        return tl::unexpected(RemovalError::restoreFailed(original, std::move(moved.error())));
    }
    return {};
}

}
