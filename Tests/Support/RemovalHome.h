#pragma once

#include <CleanupKit/Cleaner.h>
#include <Support/TemporaryHome.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tolvane {

/// A temporary home with its own Trash and a Cleaner that protects nothing, wherever the system
/// keeps its temporary files.
class RemovalHome : public TemporaryHome {
  public:
    RemovalHome()
        : layout(HostLayout::freedesktop(url(), {}))
        , files(systemFileManager(layout))
        , trash(systemTrash(layout)) {}
    using TemporaryHome::url;

    std::vector<FileURL> urls(const std::vector<std::string>& relative) const;
    Cleaner cleaner() const { return cleanerWith(trash); }
    Cleaner cleanerWith(std::shared_ptr<const Trash> other) const;
    /// The Trash, with something that happens between the checks of its caller and each move.
    std::shared_ptr<const Trash> trashAfter(std::function<void()> before) const;
    /// A receipt for every item in the Trash that has an info file; a test fails when that is not
    /// valid.
    std::vector<RemovalReceipt> receiptsFromTrash() const;
    bool isTrashEmpty() const;

    HostLayout layout;
    std::shared_ptr<const FileManager> files;
    std::shared_ptr<const Trash> trash;
};

}
