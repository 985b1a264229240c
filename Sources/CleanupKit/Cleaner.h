#pragma once

#include <CleanupKit/ProtectionPolicy.h>
#include <CleanupKit/RemovalError.h>
#include <CleanupKit/RemovalReceipt.h>
#include <HostKit/FileManager.h>
#include <HostKit/Result.h>
#include <HostKit/Trash.h>

#include <memory>
#include <vector>

namespace tolvane {

/// The only component that takes anything off its place. It never deletes: items go to the Trash,
/// and a receipt for each brings it back. Immutable; to be used from one thread at a time.
class Cleaner {
  public:
    Cleaner(ProtectionPolicy policy, FileURL home, std::shared_ptr<const FileManager> files,
            std::shared_ptr<const Trash> trash);

    const ProtectionPolicy& policy() const { return policy_; }
    /// The user's home folder; kept for callers, no check consults it.
    const FileURL& home() const { return home_; }

    /// The items that may be moved, standardised, each once, without those that lie in another one
    /// of them; shortest path first. The first item that may not be moved is the error of the whole
    /// call. Items must lie strictly inside one of the folders `within`, which "/" contains
    /// nothing of. Reads nothing of the disk but whether the items exist (links followed).
    Result<std::vector<FileURL>, RemovalError> validate(const std::vector<FileURL>& items,
                                                        const std::vector<FileURL>& within,
                                                        bool allowProtected) const;
    Result<std::vector<FileURL>, RemovalError> validate(const std::vector<FileURL>& items,
                                                        const FileURL& within) const;

    /// Moves what `validate` accepts to the Trash, in that order. The first failure ends the call:
    /// items moved before it stay in the Trash, without a receipt.
    Result<std::vector<RemovalReceipt>, RemovalError>
    moveToTrash(const std::vector<FileURL>& items, const std::vector<FileURL>& within,
                bool allowProtected) const;
    Result<std::vector<RemovalReceipt>, RemovalError> moveToTrash(const std::vector<FileURL>& items,
                                                                  const FileURL& within) const;

    /// Puts everything back that can be and gives an error for each item that cannot, in the order
    /// of the receipts. Nothing is overwritten or renamed.
    std::vector<RemovalError> restore(const std::vector<RemovalReceipt>& receipts) const;

  private:
    Result<FileURL, RemovalError> validated(const FileURL& item, const std::vector<FileURL>& roots,
                                            bool allowProtected) const;
    static std::vector<FileURL> reparented(std::vector<FileURL> urls);
    Result<RemovalReceipt, RemovalError> movedToTrash(const FileURL& item,
                                                      const FileURL& root) const;
    Result<void, RemovalError> restored(const RemovalReceipt& receipt) const;

    ProtectionPolicy policy_;
    FileURL home_;
    std::shared_ptr<const FileManager> files_;
    std::shared_ptr<const Trash> trash_;
};

}
