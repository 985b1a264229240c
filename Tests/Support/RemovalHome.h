#pragma once

#include <CleanupKit/Cleaner.h>
#include <Support/TemporaryHome.h>

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

    Cleaner cleaner() const { return cleanerWith(trash); }
    Cleaner cleanerWith(std::shared_ptr<const Trash> other) const {
        const ProtectionPolicy nothing(std::vector<std::string>{}, std::vector<std::string>{},
                                       layout.protection);
        return Cleaner(nothing, url(), files, std::move(other));
    }

    HostLayout layout;
    std::shared_ptr<const FileManager> files;
    std::shared_ptr<const Trash> trash;
};

}
